#pragma once

#include <QLineEdit>

class QBoxLayout;

/// A figure that is shown, not entered; it can be selected and copied. It is as wide as the widest text that it had, so
/// that nothing moves, and nothing is laid out anew, while a search changes it from key to key. Where the window is too
/// narrow for that, the figure is elided rather than that it pushes others away; its tooltip then has all of it.
class CVFigureField final : public QLineEdit {
    Q_OBJECT

public:
    explicit CVFigureField(QWidget* parent = nullptr);

    /// A figure of `parent` with its label before it, at the end of a layout. `objectName` is Latin-1.
    [[nodiscard]] static CVFigureField* addTo(QBoxLayout& layout, const char* objectName, const QString& label,
                                              const QString& accessibleName, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int neededWidth() const;
    [[nodiscard]] bool isElided() const;
    void widen();
    void explain();

    int mWidth = 0;
    bool mIsExplained = false;
};
