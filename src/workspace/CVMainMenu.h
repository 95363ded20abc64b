#pragma once

#include <QObject>
#include <QString>

class QAction;
class QMainWindow;
class QMenu;
class QWidget;

/// The menus of the main window: every command once, with its shortcut. Announces what was chosen; only the commands of
/// the Edit menu that concern the focused widget are carried out here.
class CVMainMenu final : public QObject {
    Q_OBJECT

public:
    /// Fills the menu bar of `window`. The shortcut of Remove Transactions works in `table` alone, so that Delete keeps
    /// its meaning elsewhere.
    CVMainMenu(QMainWindow& window, QWidget& table);

    void setRemoveEnabled(bool enabled);

signals:
    void quitRequested();
    void removeRequested();
    void sortRequested(const QString& identifier);
    void recordRequested();
    void aboutRequested();

private:
    void addEditMenu(QWidget& table);
    void addSortMenu();

    QMainWindow& mWindow;
    QAction* mRemove = nullptr;
};
