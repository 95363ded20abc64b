#include "commands/CVVersionsCommand.h"

#include "base/QBUserDefaults.h"
#include "commands/CVErrorLine.h"
#include "commands/CVStandardStreams.h"
#include "storage/CVStandardDataFile.h"
#include "versions/CVKeptName.h"
#include "versions/CVListedVersion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTextStream>

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
const QString kListedTime = QStringLiteral("yyyy-MM-dd HH:mm:ss");

struct VersionsCommandText {
    Q_DECLARE_TR_FUNCTIONS(CVVersionsCommand)
};

QStringList ownDataFiles() {
    const QBUserDefaults defaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten);
    return CVOwnDataFiles(CVStandardFolders::ofUser(), defaults);
}

/// Why it was kept, in the words of its file name.
QString reasonOf(const CVListedVersion& version) {
    if (version.reason)
        return CVWordsFor(*version.reason);
    return version.copyReason ? CVWordsFor(*version.copyReason) : QString();
}

QByteArray lineOf(const CVListedVersion& version) {
    return QStringList{version.kept.toString(kListedTime), reasonOf(version),
                       QString::number(QFileInfo(version.path).size()), QDir::toNativeSeparators(version.path)}
               .join(u'\t')
               .toUtf8() +
           '\n';
}

/// Why nothing is listed, where nothing may be meant.
QString problemWith(const std::optional<QString>& dataFile, const QString& path) {
    const QBUserDefaults defaults(QBUserDefaults::standardStore(), QBUserDefaults::Changes::Forgotten);
    const bool isNamed = dataFile || CVMissingDataFile(defaults);
    if (path.isEmpty() || (!isNamed && !QFileInfo::exists(path)))
        return VersionsCommandText::tr("there is no data file yet; name one with --data FILE");
    return QFileInfo::exists(path)
               ? QString()
               : VersionsCommandText::tr("\"%1\" does not exist").arg(QDir::toNativeSeparators(path));
}

} // namespace

int CVRunVersions(const std::optional<QString>& dataFile, QTextStream& errors) {
    const QStringList own = ownDataFiles();
    const QString path = dataFile.value_or(own.value(0));
    const QList<CVListedVersion> versions = CVListedVersion::of(path);
    // A data file that is lost may still have versions.
    if (const QString problem = problemWith(dataFile, path); versions.isEmpty() && !problem.isEmpty()) {
        CVWriteErrorLine(errors, problem);
        return kFailed;
    }
    QByteArray text;
    for (const CVListedVersion& version : versions)
        text += lineOf(version);
    QStringList spared = own + QStringList{path};
    for (const CVListedVersion& version : versions)
        spared.append(version.path);
    return CVStandardStreams::write(text, spared, errors) == 0 ? kDone : kFailed;
}

QString CVFindVersionNamed(const QString& name) {
    if (name.contains(u'/') || QFileInfo::exists(name))
        return name;
    for (const QString& dataFile : ownDataFiles()) {
        for (const CVListedVersion& version : CVListedVersion::of(dataFile)) {
            if (QFileInfo(version.path).fileName() == name)
                return version.path;
        }
    }
    return name;
}
