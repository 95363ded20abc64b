#pragma once

#include <QScrollArea>

/// Lets a content scroll where the window has less room than the content needs; where there is room enough, nothing of
/// the area shows. A window whose content lies in an area fits any screen, whatever the font.
class CVScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    /// The area owns the content.
    explicit CVScrollArea(QWidget& content, QWidget* parent = nullptr);

    /// What the content wishes for.
    [[nodiscard]] QSize sizeHint() const override;
    /// A few words in a few lines.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void decideOnBar();
};
