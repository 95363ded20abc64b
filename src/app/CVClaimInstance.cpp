#include "app/CVClaimInstance.h"

#include "app/CVStartMessages.h"

CVRunningInstance::Outcome CVClaimInstance(CVRunningInstance& running, CVAlerts& alerts,
                                           std::chrono::milliseconds patience) {
    for (;;) {
        const CVRunningInstance::Outcome outcome = running.claim(patience);
        if (outcome != CVRunningInstance::Outcome::OtherSilent)
            return outcome;
        if (alerts.run(nullptr, CVStartMessages::otherIsSilent()) != CVAlert::kDefault)
            return outcome;
    }
}
