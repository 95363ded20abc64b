#include "widgets/CVScrollArea.h"

#include <QEvent>

namespace {

constexpr int kLeastLettersShown = 24;
constexpr int kLeastLines = 6;

} // namespace

CVScrollArea::CVScrollArea(QWidget& content, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    // The Tab key skips the area itself; the area scrolls to the control that gets the focus.
    setFocusPolicy(Qt::NoFocus);
    setWidget(&content);
    // The area shows the window's background.
    content.setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

QSize CVScrollArea::sizeHint() const {
    return widget()->sizeHint();
}

QSize CVScrollArea::minimumSizeHint() const {
    const QSize least(kLeastLettersShown * fontMetrics().averageCharWidth(), kLeastLines * fontMetrics().height());
    return least.boundedTo(widget()->minimumSizeHint());
}

bool CVScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        decideOnBar();
    return QScrollArea::eventFilter(watched, event);
}

void CVScrollArea::resizeEvent(QResizeEvent* event) {
    decideOnBar();
    QScrollArea::resizeEvent(event);
}

/// Compares the content's height with the room without a scroll bar: a visible bar narrows the content, which may then
/// wrap into another line and so keep the bar for ever.
void CVScrollArea::decideOnBar() {
    const QSize room = maximumViewportSize();
    const int wish = widget()->hasHeightForWidth() ? widget()->heightForWidth(room.width()) : 0;
    const bool isEnough = qMax(wish, widget()->minimumSizeHint().height()) <= room.height();
    setVerticalScrollBarPolicy(isEnough ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}
