#include "versions/CVListedVersion.h"

#include "files/CVReplaceFile.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVKeptName.h"
#include "versions/CVVersionFolder.h"

#include <QFileInfo>

#include <algorithm>

QList<CVListedVersion> CVListedVersion::of(const QString& dataFile) {
    QList<CVListedVersion> listed;
    if (dataFile.isEmpty())
        return listed;
    for (const CVVersion& version : CVVersionFolder(dataFile).versions())
        listed.append({version.path, version.name.kept, version.name.reason});
    const QString dataFileName = QFileInfo(CVFollowLinks(dataFile)).fileName();
    for (const QString& path : CVKeptCopy::beside(dataFile)) {
        if (const auto name = CVKeptName::parse(QFileInfo(path).fileName(), dataFileName))
            listed.append({path, name->kept, std::nullopt, name->reason});
    }
    std::stable_sort(listed.begin(), listed.end(),
                     [](const CVListedVersion& a, const CVListedVersion& b) { return a.kept > b.kept; });
    return listed;
}
