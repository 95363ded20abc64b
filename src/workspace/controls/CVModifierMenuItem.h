#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QAction;
class QMenu;

/// Shows a menu item only while the Option (Alt) key is held and the menu is open. While the menu is closed the item
/// stays visible, so that its shortcut always works.
class CVModifierMenuItem final : public QObject {
    Q_OBJECT

public:
    using ModifierReader = std::function<Qt::KeyboardModifiers()>;

    /// `menu` becomes the parent.
    CVModifierMenuItem(QMenu& menu, QAction& item);

    /// Uses `reader` instead of the platform to ask which keys are held.
    void setModifierReader(ModifierReader reader) { mModifiers = std::move(reader); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void menuWillOpen();
    void menuDidClose();
    void updateMenu();

    QAction& mItem;
    ModifierReader mModifiers;
    /// Runs only while the menu is open. The timer asks for the state of the key, because key events do not reach every
    /// menu.
    QTimer mMenuObserver;
};
