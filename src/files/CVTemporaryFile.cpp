#include "files/CVTemporaryFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSysInfo>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

namespace {

constexpr int kMostNames = 100;
constexpr int kRandomLetters = 6;
/// A file name has at most 255 bytes; the rest is for the marks, the host and the numbers.
constexpr qsizetype kLongestName = 150;
constexpr qsizetype kLongestHost = 64;

QString host() {
    return QSysInfo::machineHostName().replace(u'/', u'_').left(kLongestHost);
}

/// Captures what the file was made for and the process that made it.
QRegularExpressionMatch parse(const QString& name) {
    static const QRegularExpression pattern(QStringLiteral("\\A\\.(.+)\\.saving-%1-([0-9]{1,9})-[a-z0-9]{%2}\\z")
                                                .arg(QRegularExpression::escape(host()))
                                                .arg(kRandomLetters),
                                            QRegularExpression::DotMatchesEverythingOption);
    return pattern.match(name);
}

QString randomLetters() {
    constexpr QLatin1StringView kLetters("abcdefghijklmnopqrstuvwxyz0123456789");
    QString letters;
    for (int i = 0; i < kRandomLetters; ++i)
        letters += kLetters[QRandomGenerator::global()->bounded(kLetters.size())];
    return letters;
}

bool isRunning(pid_t process) {
    return process != ::getpid() && (::kill(process, 0) == 0 || errno != ESRCH);
}

} // namespace

CVTemporaryFile::CVTemporaryFile(const QString& place, unsigned mode) {
    for (int attempt = 0; attempt < kMostNames && mDescriptor < 0; ++attempt) {
        mPath = nameBeside(place);
        mDescriptor = ::open(QFile::encodeName(mPath).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (mDescriptor < 0 && errno != EEXIST && errno != EINTR)
            break;
    }
    mIsOwner = mDescriptor >= 0;
    if (!mIsOwner)
        mOpened = CVFileResult::ofLastCall();
}

CVTemporaryFile::~CVTemporaryFile() {
    if (mDescriptor >= 0)
        ::close(mDescriptor);
    if (mIsOwner)
        ::unlink(QFile::encodeName(mPath).constData());
}

QString CVTemporaryFile::shortened(const QString& fileName) {
    // A letter has at most three bytes in UTF-8; of a pair that stands for one letter neither is cut off.
    constexpr qsizetype kMostBytes = 3;
    qsizetype length = std::min(
        fileName.size(), QFile::encodeName(fileName).size() > kLongestName ? kLongestName / kMostBytes : kLongestName);
    if (length > 0 && length < fileName.size() && fileName[length - 1].isHighSurrogate())
        --length;
    return fileName.left(length);
}

QString CVTemporaryFile::nameBeside(const QString& place) {
    const QFileInfo file(place);
    const QRegularExpressionMatch match = parse(file.fileName());
    return QStringLiteral("%1/.%2.saving-%3-%4-%5")
        .arg(file.absolutePath(), shortened(match.hasMatch() ? match.captured(1) : file.fileName()), host(),
             QString::number(::getpid()), randomLetters());
}

QList<CVTemporaryFile::Leftover> CVTemporaryFile::leftIn(const QString& folder) {
    QList<Leftover> left;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files | QDir::NoSymLinks | QDir::Hidden)) {
        const QRegularExpressionMatch match = parse(file.fileName());
        if (match.hasMatch() && !isRunning(match.captured(2).toInt()))
            left.append({file.absoluteFilePath(), match.captured(1)});
    }
    return left;
}
