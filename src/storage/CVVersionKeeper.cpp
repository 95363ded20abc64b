#include "storage/CVVersionKeeper.h"

#include "storage/CVWriteDocumentText.h"
#include "versions/CVDueVersion.h"
#include "versions/CVVersionFolder.h"

#include <QDateTime>
#include <QDir>

namespace {

constexpr qint64 kNanosecondsPerMillisecond = 1'000'000;

} // namespace

std::optional<CVVersionReason> CVVersionKeeper::due(std::optional<CVVersionReason> asked,
                                                    const CVFileSignature& present, qint64 limit) const {
    if (limit <= 0)
        return std::nullopt;
    const QDateTime now = QDateTime::currentDateTime();
    std::optional<CVVersionName> newest = mNotKept;
    for (const CVVersion& version : CVVersionFolder(mDataFile).versions()) {
        // A clock that was set back makes a version one of the future, which must not suspend the keeping.
        if (version.name.kept <= now && (!newest || newest->kept < version.name.kept))
            newest = version.name;
    }
    return CVDueVersion(asked, QDateTime::fromMSecsSinceEpoch(present.modified / kNanosecondsPerMillisecond), newest,
                        now);
}

QString CVVersionKeeper::keepFile(const QString& former, CVVersionReason reason, qint64 limit) {
    const QDateTime now = QDateTime::currentDateTime();
    return finish(CVVersionFolder(mDataFile).keep(former, reason, now), {now, 1, reason}, limit);
}

QString CVVersionKeeper::keepText(const CVDocumentText& text, CVVersionReason reason, qint64 limit) {
    const QDateTime now = QDateTime::currentDateTime();
    const CVFileContent content = CVContentOfDocumentText(text);
    return finish(CVVersionFolder(mDataFile).keepContent(content, reason, now), {now, 1, reason}, limit);
}

QString CVVersionKeeper::finish(const CVFileResult& kept, const CVVersionName& version, qint64 limit) {
    const CVVersionFolder folder(mDataFile);
    const QString place = QDir::toNativeSeparators(folder.path());
    mNotKept.reset();
    if (!kept.ok()) {
        mNotKept = version;
        return tr("An earlier version could not be kept in “%1”: %2.").arg(place, kept.error);
    }
    const CVFileResult thinned = limit > 0 ? folder.thin(version.kept, limit) : CVFileResult();
    return thinned.ok()
               ? QString()
               : tr("Superfluous earlier versions could not be removed from “%1”: %2.").arg(place, thinned.error);
}
