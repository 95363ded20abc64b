#pragma once

#include <QLineEdit>

/// A figure that is shown, not entered: as wide as its text, and it can be selected and copied.
class CVFigureField final : public QLineEdit {
    Q_OBJECT

public:
    explicit CVFigureField(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
};
