#include "workspace/CVMainMenu.h"

#include "workspace/CVEditCommands.h"
#include "workspace/CVTransactionTableModel.h"

#include <QMainWindow>
#include <QMenuBar>

#include <array>

namespace {

struct EditEntry {
    CVEditCommand command;
    const char* title;
    QKeySequence::StandardKey shortcut;
};

constexpr std::array<EditEntry, 4> kEditEntries{
    {{CVEditCommand::Cut, QT_TRANSLATE_NOOP("CVMainMenu", "Cu&t"), QKeySequence::Cut},
     {CVEditCommand::Copy, QT_TRANSLATE_NOOP("CVMainMenu", "&Copy"), QKeySequence::Copy},
     {CVEditCommand::Paste, QT_TRANSLATE_NOOP("CVMainMenu", "&Paste"), QKeySequence::Paste},
     {CVEditCommand::SelectAll, QT_TRANSLATE_NOOP("CVMainMenu", "Select &All"), QKeySequence::SelectAll}}};

} // namespace

CVMainMenu::CVMainMenu(QMainWindow& window, QWidget& table) : QObject(&window), mWindow(window) {
    QMenuBar& bar = *window.menuBar();
    QMenu& file = *bar.addMenu(tr("&File"));
    file.addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, &CVMainMenu::quitRequested);
    addEditMenu(table);
    addSortMenu();
    QMenu& budget = *bar.addMenu(tr("&Budget"));
    QAction* const record = budget.addAction(tr("&Record"), this, &CVMainMenu::recordRequested);
    record->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Return), QKeySequence(Qt::CTRL | Qt::Key_Enter)});
    QMenu& help = *bar.addMenu(tr("&Help"));
    help.addAction(tr("&About Corvella"), this, &CVMainMenu::aboutRequested);
}

void CVMainMenu::setRemoveEnabled(bool enabled) {
    mRemove->setEnabled(enabled);
}

void CVMainMenu::addEditMenu(QWidget& table) {
    QMenu& menu = *mWindow.menuBar()->addMenu(tr("&Edit"));
    for (const EditEntry& entry : kEditEntries) {
        QAction* const action = menu.addAction(tr(entry.title), QKeySequence(entry.shortcut), this,
                                               [this, &entry] { CVEdit(entry.command, mWindow.focusWidget()); });
        // Greyed out only while the menu is open: what is possible changes with every key, and the shortcuts must work.
        connect(&menu, &QMenu::aboutToShow, action,
                [this, action, &entry] { action->setEnabled(CVCanEdit(entry.command, mWindow.focusWidget())); });
        connect(&menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    }
    menu.addSeparator();
    mRemove =
        menu.addAction(tr("&Remove Transactions"), QKeySequence(Qt::Key_Delete), this, &CVMainMenu::removeRequested);
    mRemove->setShortcutContext(Qt::WidgetShortcut);
    table.addAction(mRemove);
    setRemoveEnabled(false);
}

void CVMainMenu::addSortMenu() {
    QMenu& sort = *mWindow.menuBar()->addMenu(tr("&View"))->addMenu(tr("&Sort By"));
    for (int column = 0; column < CVTransactionTableModel::ColumnCount; ++column) {
        const QString identifier = CVTransactionTableModel::identifier(column);
        sort.addAction(CVTransactionTableModel::title(column), this,
                       [this, identifier] { emit sortRequested(identifier); });
    }
}
