#pragma once

#include <QPushButton>

/// A button that can be as narrow as its text where room is short. Styles make short texts' buttons wider than that.
class CVCompactButton final : public QPushButton {
    Q_OBJECT

public:
    explicit CVCompactButton(const QString& text, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;
};
