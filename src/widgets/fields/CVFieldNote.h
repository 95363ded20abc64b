#pragma once

#include <QLabel>

/// A short line of text that floats below a text field while the user types. The note takes no room in the layout and
/// no clicks. The field owns the note.
class CVFieldNote final : public QLabel {
    Q_OBJECT

public:
    explicit CVFieldNote(QWidget& field);

    /// Shows `text`; an empty text hides the note.
    void say(const QString& text);

private:
    const QWidget& mField;
};
