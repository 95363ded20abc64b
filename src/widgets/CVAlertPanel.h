#pragma once

#include "widgets/CVAlerts.h"

/// Alerts as modal panels of the window that asks, or of the one that keeps it from being used or has taken its place.
/// The headline says the title whole, the caption names the program alone. Escape answers with the alternate button, or
/// with the default button where there is no alternate or the alert says so.
class CVAlertPanel final : public CVAlerts {
public:
    CVAlert::Answer run(QWidget* window, const CVAlert& alert) override;
};
