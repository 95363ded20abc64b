#include "workspace/controls/CVOptionItem.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include <chrono>

namespace {

/// Soon enough for a hand that presses a key.
constexpr std::chrono::milliseconds kBetweenLooks(50);

} // namespace

CVOptionItem::CVOptionItem(QMenu& menu, QAction& item)
    : QObject(&menu)
    , mItem(item)
    , mModifiers(&QGuiApplication::queryKeyboardModifiers) {
    mMenuObserver.setInterval(kBetweenLooks);
    connect(&mMenuObserver, &QTimer::timeout, this, &CVOptionItem::updateMenu);
    connect(&menu, &QMenu::aboutToShow, this, &CVOptionItem::menuWillOpen);
    menu.installEventFilter(this);
    connect(&menu, &QMenu::aboutToHide, this, &CVOptionItem::menuDidClose);
}

/// In most styles Alt closes an open menu; in this one it is to show the item.
bool CVOptionItem::eventFilter(QObject* watched, QEvent* event) {
    return (event->type() == QEvent::KeyPress && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Alt) ||
           QObject::eventFilter(watched, event);
}

void CVOptionItem::menuWillOpen() {
    updateMenu();
    mMenuObserver.start();
}

void CVOptionItem::menuDidClose() {
    mMenuObserver.stop();
    mItem.setVisible(true);
}

void CVOptionItem::updateMenu() {
    mItem.setVisible(mModifiers().testFlag(Qt::AltModifier));
}
