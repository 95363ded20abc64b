#include "workspace/controls/CVModifierMenuItem.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include <chrono>

namespace {

/// The time between two readings of the key. It is short, so that the item follows the key without a visible delay.
constexpr std::chrono::milliseconds kBetweenReadings(50);

} // namespace

CVModifierMenuItem::CVModifierMenuItem(QMenu& menu, QAction& item)
    : QObject(&menu)
    , mItem(item)
    , mModifiers(&QGuiApplication::queryKeyboardModifiers) {
    mMenuObserver.setInterval(kBetweenReadings);
    connect(&mMenuObserver, &QTimer::timeout, this, &CVModifierMenuItem::updateMenu);
    connect(&menu, &QMenu::aboutToShow, this, &CVModifierMenuItem::menuWillOpen);
    menu.installEventFilter(this);
    connect(&menu, &QMenu::aboutToHide, this, &CVModifierMenuItem::menuDidClose);
}

/// Swallows Alt, which closes an open menu in most styles and must show the item here.
bool CVModifierMenuItem::eventFilter(QObject* watched, QEvent* event) {
    return (event->type() == QEvent::KeyPress && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Alt) ||
           QObject::eventFilter(watched, event);
}

void CVModifierMenuItem::menuWillOpen() {
    updateMenu();
    mMenuObserver.start();
}

void CVModifierMenuItem::menuDidClose() {
    mMenuObserver.stop();
    mItem.setVisible(true);
}

void CVModifierMenuItem::updateMenu() {
    mItem.setVisible(mModifiers().testFlag(Qt::AltModifier));
}
