#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QAction;
class QMenu;

/// Keeps a menu item in step with the Option (Alt) key: while its menu is open, the item is shown only as long as the
/// key is held. While the menu is closed the item is there, so that its shortcut always works.
class CVOptionItem final : public QObject {
    Q_OBJECT

public:
    using ModifierReader = std::function<Qt::KeyboardModifiers()>;

    /// Belongs to the menu.
    CVOptionItem(QMenu& menu, QAction& item);

    /// Asks `reader` for the keys that are held, in place of the platform.
    void setModifierReader(ModifierReader reader) { mModifiers = std::move(reader); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void menuWillOpen();
    void menuDidClose();
    void updateMenu();

    QAction& mItem;
    ModifierReader mModifiers;
    /// Runs only while the menu is open. The state of the key is asked for: its events do not reach every menu.
    QTimer mMenuObserver;
};
