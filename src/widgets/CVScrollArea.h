#pragma once

#include <QScrollArea>

/// Lets a content scroll where the window is too small for it; otherwise nothing of the area is visible. A window whose
/// content lies in an area fits any screen, whatever the font.
class CVScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    /// The area owns the content.
    explicit CVScrollArea(QWidget& content, QWidget* parent = nullptr);

    /// The content's own size hint.
    [[nodiscard]] QSize sizeHint() const override;
    /// Room for a few words in a few lines.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void decideOnBar();
};
