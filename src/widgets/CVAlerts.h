#pragma once

#include <QString>

class QWidget;

/// What an alert says and asks. A button with an empty text is not there; the default button always is.
struct CVAlert {
    /// The button that ended an alert.
    enum Answer { kOther = -1, kAlternate = 0, kDefault = 1 };
    enum class Style { Warning, Information, Critical };

    QString title;
    QString message;
    QString defaultButton;
    QString alternateButton = {};
    QString otherButton = {};
    Style style = Style::Warning;
    /// What Escape, and closing the panel, answer: the alternate button, as far as there is one, or the default or the
    /// other button where that is the one that changes nothing.
    Answer escapeAnswer = kAlternate;
};

/// Shows alerts and waits for their answers. While an alert is shown other events run: whoever asked looks at the world
/// anew afterwards.
class CVAlerts {
public:
    /// The alert belongs to `window`, the one of whoever asks; to none at the start, before there is a window.
    virtual CVAlert::Answer run(QWidget* window, const CVAlert& alert) = 0;

protected:
    ~CVAlerts() = default;
};
