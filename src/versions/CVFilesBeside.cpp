#include "versions/CVFilesBeside.h"

#include "versions/CVConflictCopies.h"
#include "versions/CVListedVersion.h"

#include <QDateTime>
#include <QFileInfo>

namespace {

QString stateOf(const QString& path) {
    const QFileInfo file(path);
    return QString::number(file.size()) + u' ' + QString::number(file.lastModified().toMSecsSinceEpoch());
}

} // namespace

CVFilesBeside CVFilesBeside::of(const QString& dataFile) {
    CVFilesBeside found{.dataFile = dataFile};
    for (const QString& path : CVConflictCopies::beside(dataFile))
        found.conflictCopies.append({path, stateOf(path)});
    const QList<CVListedVersion> earlier = CVListedVersion::of(dataFile);
    found.hasEarlier = !earlier.isEmpty();
    for (const CVListedVersion& version : earlier) {
        if (version.copyReason == CVKeptReason::ChangedOutside)
            found.changedOutside.append(version.path);
    }
    return found;
}
