#pragma once

#include "start/CVRunningInstance.h"

class CVAlerts;

/// Claims the folder for this program, or lets the program that already runs show itself. Waiting for the other program
/// shows a panel with Cancel. While the other program does not answer, asks the user whether to try again;
/// `OtherSilent` means that the user does not want to.
[[nodiscard]] CVRunningInstance::Outcome CVClaimInstance(CVRunningInstance& running, CVAlerts& alerts,
                                                         std::chrono::milliseconds patience);
