#pragma once

#include <QLineEdit>

class QBoxLayout;

/// A figure that is shown, not entered: as wide as its text, and it can be selected and copied.
class CVFigureField final : public QLineEdit {
    Q_OBJECT

public:
    explicit CVFigureField(QWidget* parent = nullptr);

    /// A figure of `parent` with its label before it, at the end of a layout. `objectName` is Latin-1.
    [[nodiscard]] static CVFigureField* addTo(QBoxLayout& layout, const char* objectName, const QString& label,
                                              const QString& accessibleName, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
};
