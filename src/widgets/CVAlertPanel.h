#pragma once

#include "widgets/CVAlerts.h"

/// Shows alerts as panels that block the asker's window, or the modal window that blocks the asker's window, or any
/// shown window when the asker's has closed. The headline shows the alert's title; the caption shows the program's
/// name. Escape answers with the alternate button, or with another button where there is no alternate or the alert says
/// so.
class CVAlertPanel final : public CVAlerts {
public:
    CVAlert::Answer run(QWidget* window, const CVAlert& alert) override;
};
