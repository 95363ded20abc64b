#include "widgets/CVScrollArea.h"

#include <QEvent>

namespace {

constexpr int kLeastLettersShown = 24;
constexpr int kLeastLines = 6;

} // namespace

CVScrollArea::CVScrollArea(QWidget& content, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    // Tab leads to the controls; scrolling follows the focus.
    setFocusPolicy(Qt::NoFocus);
    setWidget(&content);
    // The window's ground shows through.
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

/// A bar that is there leaves less width, in which the content may need another line and with it the bar: what counts
/// is the room without one.
void CVScrollArea::decideOnBar() {
    const QSize room = maximumViewportSize();
    const int wish = widget()->hasHeightForWidth() ? widget()->heightForWidth(room.width()) : 0;
    const bool isEnough = qMax(wish, widget()->minimumSizeHint().height()) <= room.height();
    setVerticalScrollBarPolicy(isEnough ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}
