#pragma once

#include <QPushButton>

class QBoxLayout;

/// A button that shrinks to the width of its text where room is short; styles give buttons with short texts a larger
/// minimum width.
class CVCompactButton final : public QPushButton {
    Q_OBJECT

public:
    explicit CVCompactButton(const QString& text, QWidget* parent = nullptr);
    /// Adds one with that object name to a row of `window`, which owns it. Its text is its accessible name too. Return
    /// does not press it, because Return belongs to the table beside it.
    static QPushButton& addTo(QBoxLayout& row, const QString& text, const char* name, QWidget& window);

    [[nodiscard]] QSize minimumSizeHint() const override;
};
