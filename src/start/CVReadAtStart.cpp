#include "start/CVReadAtStart.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "files/CVFileSignature.h"
#include "start/CVMissingPlace.h"
#include "start/CVStartMessages.h"
#include "start/CVWaitForPlace.h"

std::optional<CVLoadReport> CVReadAtStart(const CVStandardFolders& folders, QBUserDefaults& defaults, CVAlerts& alerts,
                                          const std::function<CVLoadReport()>& read) {
    const auto stored = defaults.stringForKey(CVDefaultsKeys::kDataFileLocation);
    if (stored && !CVWaitForPlace(*stored, [path = *stored] { (void)CVFileSignature::of(path); }))
        return std::nullopt;
    // A file that cannot be read may be away by the next attempt.
    while (CVMissingPlace::settle(folders, defaults, alerts)) {
        CVLoadReport report = read();
        if (report.outcome == CVLoadReport::Outcome::Cancelled)
            return std::nullopt;
        if (report.outcome != CVLoadReport::Outcome::NotRead)
            return report;
        const CVAlert::Answer answer = alerts.run(nullptr, CVStartMessages::notRead(report));
        if (answer == CVAlert::kOther)
            return report;
        if (answer == CVAlert::kAlternate)
            return std::nullopt;
    }
    return std::nullopt;
}
