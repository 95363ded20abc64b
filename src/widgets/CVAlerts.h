#pragma once

#include <QString>

class QWidget;

/// What an alert says and asks. A button with an empty text is left out; the default button is always shown.
struct CVAlert {
    /// The button that ended an alert.
    enum Answer { kFurther = -2, kOther = -1, kAlternate = 0, kDefault = 1 };
    enum class Style { Warning, Information, Critical };

    QString title;
    QString message;
    QString defaultButton;
    QString alternateButton = {};
    QString otherButton = {};
    Style style = Style::Warning;
    /// The answer that Escape and closing the panel give. Choose the answer that changes nothing. A button that is
    /// absent falls back to the alternate button, then to the default button.
    Answer escapeAnswer = kAlternate;
    /// A fourth button, for a way out that is seldom right.
    QString furtherButton = {};
};

/// Shows alerts and waits for their answers. Other events run while an alert is shown, so the caller checks its state
/// again afterwards.
class CVAlerts {
public:
    /// `window` is the asker's window, which the alert blocks; null during start-up, before there is a window.
    virtual CVAlert::Answer run(QWidget* window, const CVAlert& alert) = 0;

protected:
    ~CVAlerts() = default;
};
