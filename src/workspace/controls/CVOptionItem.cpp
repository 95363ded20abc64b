#include "workspace/controls/CVOptionItem.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include <chrono>

namespace {

/// How often the key is read: the item follows the key without a visible delay.
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

/// Swallows Alt, which closes an open menu in most styles and must show the item here.
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
