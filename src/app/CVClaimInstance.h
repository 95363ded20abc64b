#pragma once

#include "app/CVRunningInstance.h"

class CVAlerts;

/// Makes this program the one of its folder, or has the one that runs shown. While the other one does not answer, the
/// user is asked whether to try again; the other is silent then only because the user does not want to.
[[nodiscard]] CVRunningInstance::Outcome CVClaimInstance(CVRunningInstance& running, CVAlerts& alerts,
                                                         std::chrono::milliseconds patience);
