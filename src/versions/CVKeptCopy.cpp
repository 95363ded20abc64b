#include "versions/CVKeptCopy.h"

#include "files/CVFileSignature.h"
#include "files/CVMoveFile.h"
#include "files/CVReplaceFile.h"
#include "versions/CVKeptName.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace {

constexpr int kMostCopiesPerSecond = 100;

QString freeName(const QFileInfo& file, CVKeptReason reason, const QDateTime& now) {
    for (int copy = 1; copy <= kMostCopiesPerSecond; ++copy) {
        QString name = file.absolutePath() + u'/' + CVKeptName{reason, now, copy}.fileName(file.fileName());
        const QFileInfo candidate(name);
        if (!candidate.exists() && !candidate.isSymLink())
            return name;
    }
    return {};
}

/// The message that holds this text already names `path`, so `real` is named only when a link leads to it.
CVKeptCopy refuse(const QString& path, const QString& real, const QString& reason) {
    const QString what =
        QFileInfo(path).absoluteFilePath() == real
            ? QCoreApplication::translate("CVKeptCopy", "what stands there could not be kept beside it: %1").arg(reason)
            : QCoreApplication::translate("CVKeptCopy", "what stands at “%1” could not be kept beside it: %2")
                  .arg(real, reason);
    return {{}, {what}};
}

} // namespace

CVKeptCopy CVKeptCopy::keep(const QString& place, CVKeptReason reason, const QDateTime& now) {
    const QString real = QFileInfo(place).canonicalFilePath();
    if (real.isEmpty())
        return {};
    const QFileInfo file(real);
    CVKeptCopy kept{freeName(file, reason, now), {}, false};
    // A file that cannot be read is moved instead of linked, because the new file would inherit its mode.
    kept.moved = !file.isFile() || !file.isReadable();
    if (kept.path.isEmpty())
        return refuse(place, real, QCoreApplication::translate("CVKeptCopy", "too many are kept there already"));
    const CVFileResult keeping = kept.moved ? CVMoveFile(real, kept.path) : CVLinkOrCopyFile(real, kept.path);
    if (!keeping.ok())
        return refuse(place, real, keeping.error);
    kept.result = CVSyncFolder(file.absolutePath());
    return kept;
}

CVKeptCopy CVKeptCopy::keepFormer(const QString& former, const QString& place, CVKeptReason reason,
                                  const QDateTime& now) {
    const QString real = CVFollowLinks(place);
    if (real.isEmpty())
        return {former, {QCoreApplication::translate("CVKeptCopy", "the links lead nowhere")}, true};
    const QFileInfo file(real);
    CVKeptCopy kept{freeName(file, reason, now), {}, true};
    if (kept.path.isEmpty())
        return {former, {qt_error_string(EEXIST)}, true};
    const CVFileResult moving = CVMoveFile(former, kept.path);
    if (!moving.ok())
        return {former, moving, true};
    kept.result = CVSyncFolder(file.absolutePath());
    return kept;
}

bool CVKeptCopy::putBack(const QString& place) const {
    return CVMoveFile(path, place).ok();
}

QStringList CVKeptCopy::beside(const QString& dataFile) {
    const QFileInfo file(CVFollowLinks(dataFile));
    QStringList kept;
    for (const QFileInfo& entry : file.absoluteDir().entryInfoList(QDir::Files, QDir::Name | QDir::Reversed)) {
        if (isNameOfOne(entry.fileName(), file.fileName()))
            kept.append(entry.absoluteFilePath());
    }
    return kept;
}

bool CVKeptCopy::isNameOfOne(const QString& fileName, const QString& dataFile) {
    return CVKeptName::parse(fileName, dataFile).has_value();
}
