#pragma once

#include <QPushButton>

/// A button that shrinks to the width of its text where room is short; styles give buttons with short texts a larger
/// minimum width.
class CVCompactButton final : public QPushButton {
    Q_OBJECT

public:
    explicit CVCompactButton(const QString& text, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;
};
