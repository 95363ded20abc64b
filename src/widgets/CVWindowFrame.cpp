#include "widgets/CVWindowFrame.h"

#include <QScreen>
#include <QWidget>

namespace {

/// The largest frame that a window manager puts around a window. The real frame is known only once the window is shown.
/// In pixels.
constexpr QMargins kUsualFrame(4, 38, 4, 4);

/// `inside` shrunk to the size of the screens and moved onto them.
QRect broughtInto(const QRect& screens, QRect inside) {
    inside.setSize(inside.size().boundedTo(screens.marginsRemoved(kUsualFrame).size()));
    inside.moveLeft(qBound(screens.left(), inside.left(), screens.right() + 1 - inside.width()));
    inside.moveTop(qBound(screens.top(), inside.top(), screens.bottom() + 1 - inside.height()));
    return inside;
}

} // namespace

QSize CVWindowFrame::largestSize(const QWidget& window) {
    return window.screen()->availableGeometry().marginsRemoved(kUsualFrame).size();
}

void CVWindowFrame::restore(QWidget& window, const QByteArray& frame, const QSize& firstSize) {
    if (!window.restoreGeometry(frame))
        return window.resize(firstSize.boundedTo(CVWindowFrame::largestSize(window)));
    if (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    const QRect fitting = broughtInto(window.screen()->availableVirtualGeometry(), window.geometry());
    if (fitting != window.geometry())
        window.setGeometry(fitting);
}
