#include "history/CVVersionText.h"

#include "base/QBDate.h"
#include "format/QBDateFormatter.h"
#include "model/CVVersionReason.h"
#include "versions/CVKeptReason.h"

#include <QCoreApplication>

namespace {

struct VersionText {
    Q_DECLARE_TR_FUNCTIONS(CVVersionText)
};

} // namespace

QString CVVersionText::moment(const QDateTime& time) {
    if (!time.isValid())
        return {};
    const QBDate day = QBDate::dateWithNSDate(time);
    const QBDate today = QBDate::date();
    const QString clock = QBDateLocaleInForce().toString(time.time(), QLocale::ShortFormat);
    if (day == today)
        return VersionText::tr("today %1").arg(clock);
    if (day == today.dateByAddingYears(0, 0, -1))
        return VersionText::tr("yesterday %1").arg(clock);
    return VersionText::tr("%1 %2", "a date and a time").arg(QBDateFormatter().string(day), clock);
}

QString CVVersionText::reason(CVVersionReason reason) {
    switch (reason) {
    case CVVersionReason::FirstOfDay:
        return VersionText::tr("first change of the day");
    case CVVersionReason::Hourly:
        return VersionText::tr("once an hour");
    case CVVersionReason::Removal:
        return VersionText::tr("before removing");
    case CVVersionReason::Deletion:
        return VersionText::tr("before deleting a category or set");
    case CVVersionReason::Clearing:
        return VersionText::tr("before clearing");
    case CVVersionReason::Import:
        return VersionText::tr("before an import");
    case CVVersionReason::Move:
        return VersionText::tr("before moving the data file");
    case CVVersionReason::Return:
        return VersionText::tr("before returning to a version");
    case CVVersionReason::TakingOver:
        return VersionText::tr("before taking over changes");
    case CVVersionReason::Interruption:
        return VersionText::tr("left by an interrupted save");
    }
    return {};
}

QString CVVersionText::reason(CVKeptReason reason) {
    switch (reason) {
    case CVKeptReason::Unreadable:
        return VersionText::tr("could not be read");
    case CVKeptReason::ChangedOutside:
        return VersionText::tr("changed outside Corvella");
    case CVKeptReason::AsItWasRead:
        return VersionText::tr("as it was read");
    case CVKeptReason::ReplacedWhenMoved:
        return VersionText::tr("replaced when the data file moved");
    }
    return {};
}
