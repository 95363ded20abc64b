#include "versions/CVListedVersion.h"

#include "versions/CVKeptCopy.h"
#include "versions/CVVersionFolder.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

/// The time in the name of a kept copy; invalid when there is none.
QDateTime timeOfKeptCopy(const QString& path) {
    static const QRegularExpression stamp(QStringLiteral(R"(\(unreadable (\d{4}-\d\d-\d\d \d{6})( \d+)?\)[^()]*$)"));
    return QDateTime::fromString(stamp.match(QFileInfo(path).fileName()).captured(1),
                                 QStringLiteral("yyyy-MM-dd HHmmss"));
}

} // namespace

QList<CVListedVersion> CVListedVersion::of(const QString& dataFile) {
    QList<CVListedVersion> listed;
    if (dataFile.isEmpty())
        return listed;
    for (const CVVersion& version : CVVersionFolder(dataFile).versions())
        listed.append({version.path, version.name.kept, version.name.reason});
    for (const QString& path : CVKeptCopy::beside(dataFile))
        listed.append({path, timeOfKeptCopy(path), std::nullopt});
    std::stable_sort(listed.begin(), listed.end(),
                     [](const CVListedVersion& a, const CVListedVersion& b) { return a.kept > b.kept; });
    return listed;
}
