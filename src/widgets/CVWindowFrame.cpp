#include "widgets/CVWindowFrame.h"

#include <QScreen>
#include <QWidget>

namespace {

/// What a window manager puts around a window, at the most: how much it is shows only with the window. In pixels.
constexpr QMargins kUsualFrame(4, 38, 4, 4);

/// The nearest place inside of the screens.
QRect broughtInto(const QRect& screens, QRect inside) {
    inside.setSize(inside.size().boundedTo(screens.marginsRemoved(kUsualFrame).size()));
    inside.moveLeft(qBound(screens.left(), inside.left(), screens.right() + 1 - inside.width()));
    inside.moveTop(qBound(screens.top(), inside.top(), screens.bottom() + 1 - inside.height()));
    return inside;
}

} // namespace

QSize CVLargestWindow(const QWidget& window) {
    return window.screen()->availableGeometry().marginsRemoved(kUsualFrame).size();
}

void CVRestoreFrame(QWidget& window, const QByteArray& frame, const QSize& firstSize) {
    if (!window.restoreGeometry(frame))
        return window.resize(firstSize.boundedTo(CVLargestWindow(window)));
    if (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    const QRect fitting = broughtInto(window.screen()->availableVirtualGeometry(), window.geometry());
    if (fitting != window.geometry())
        window.setGeometry(fitting);
}
