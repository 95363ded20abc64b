#include "start/CVClaimInstance.h"

#include "base/CVBundle.h"
#include "start/CVStartMessages.h"
#include "widgets/CVProgressPanel.h"

#include <optional>

namespace {

constexpr int kWaitingSteps = 100;

} // namespace

CVRunningInstance::Outcome CVClaimInstance(CVRunningInstance& running, CVAlerts& alerts,
                                           std::chrono::milliseconds patience) {
    for (;;) {
        std::optional<CVProgressPanel> panel;
        bool isCancelled = false;
        const CVRunningInstance::Outcome outcome = running.claim(patience, [&](double part) {
            if (!panel)
                panel.emplace(QString::fromLatin1(CVBundle::kName), kWaitingSteps, nullptr);
            isCancelled = !panel->stepsDone(static_cast<int>(part * kWaitingSteps), CVStartMessages::waitingForOther());
            return !isCancelled;
        });
        panel.reset();
        if (outcome != CVRunningInstance::Outcome::OtherSilent || isCancelled)
            return outcome;
        if (alerts.run(nullptr, CVStartMessages::otherIsSilent()) != CVAlert::kDefault)
            return outcome;
    }
}
