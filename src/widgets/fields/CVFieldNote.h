#pragma once

#include <QLabel>

/// A short line that floats below a text field while the user types there; it takes no room and no clicks. The field
/// owns it.
class CVFieldNote final : public QLabel {
    Q_OBJECT

public:
    explicit CVFieldNote(QWidget& field);

    /// An empty text takes the note away.
    void say(const QString& text);

private:
    const QWidget& mField;
};
