#include "commands/CVNamedDataFile.h"

#include "commands/CVStandardStreams.h"
#include "storage/CVStandardDataFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

struct NamedDataFileText {
    Q_DECLARE_TR_FUNCTIONS(CVNamedDataFile)
};

} // namespace

CVNamedDataFile CVNamedDataFile::find(const std::optional<QString>& dataFile, const CVStandardFolders& folders,
                                      const QBUserDefaults& defaults) {
    // The search would take another budget for the user's.
    if (const auto missing = dataFile ? std::nullopt : CVMissingDataFile(defaults))
        return {*missing,
                NamedDataFileText::tr("your data file \"%1\" is not there; connect its disk or its share, or name "
                                      "another file with --data FILE")
                    .arg(QDir::toNativeSeparators(*missing)),
                true};
    const auto path = dataFile ? dataFile : CVFindDataFile(folders, defaults);
    if (!path)
        return {{}, NamedDataFileText::tr("there is no data file yet; name one with --data FILE"), true};
    if (*path == QLatin1String(CVStandardStreams::kName))
        return {*path};
    const QString shown = u'"' + QDir::toNativeSeparators(*path) + u'"';
    if (!QFileInfo::exists(*path))
        return {*path, NamedDataFileText::tr("%1 does not exist").arg(shown), true};
    return {*path, QFileInfo(*path).isDir() ? NamedDataFileText::tr("%1 is not a file").arg(shown) : QString()};
}
