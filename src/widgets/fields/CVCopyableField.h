#pragma once

#include <QLineEdit>

class QBoxLayout;

/// A read-only text, mostly a number, that can be selected and copied. The field is as wide as the widest text that it
/// has shown, so that its neighbours do not move at every key of a search. Where the window is too narrow, the text is
/// elided and the tooltip shows all of it.
class CVCopyableField final : public QLineEdit {
    Q_OBJECT

public:
    explicit CVCopyableField(QWidget* parent = nullptr);

    /// Adds a label and a field to the end of a layout. `parent` owns both. `objectName` is Latin-1.
    [[nodiscard]] static CVCopyableField* addTo(QBoxLayout& layout, const char* objectName, const QString& label,
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
