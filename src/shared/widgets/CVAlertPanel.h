#pragma once

#include "shared/widgets/CVAlerts.h"

/// Alerts as modal panels of the window that the user works in. Escape answers with the alternate button, or with the
/// default button where there is no alternate or the alert says so.
class CVAlertPanel final : public CVAlerts {
public:
    CVAlert::Answer run(const CVAlert& alert) override;
};
