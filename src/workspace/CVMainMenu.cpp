#include "workspace/CVMainMenu.h"

#include "widgets/tables/CVTableView.h"
#include "workspace/CVEditCommands.h"
#include "workspace/controls/CVModifierMenuItem.h"
#include "workspace/transactions/CVTransactionTableModel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>

#include <algorithm>

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

enum Menu { File, Edit, View, Budget, Help };

constexpr std::array<const char*, Help + 1> kMenus{
    {QT_TRANSLATE_NOOP("CVMainMenu", "&File"), QT_TRANSLATE_NOOP("CVMainMenu", "&Edit"),
     QT_TRANSLATE_NOOP("CVMainMenu", "&View"), QT_TRANSLATE_NOOP("CVMainMenu", "&Budget"),
     QT_TRANSLATE_NOOP("CVMainMenu", "&Help")}};

/// Whether a separator precedes the command.
enum class Group { Same, New };

struct Entry {
    CVCommand command;
    Menu menu;
    Group group;
    const char* title;
    /// The default shortcuts, separated by semicolons; empty for none.
    const char* shortcut;
};

/// The commands in the order of CVCommand, which is also their order in the menus.
constexpr std::array<Entry, kCVCommands> kEntries{
    {{CVCommand::Import, File, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Import…"), "Ctrl+I"},
     {CVCommand::ImportFromClipboard, File, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Import from &Clipboard…"),
      ""},
     {CVCommand::Export, File, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Export Transactions…"), "Ctrl+E"},
     {CVCommand::EarlierVersions, File, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "E&arlier Versions…"), ""},
     {CVCommand::ChangesFromElsewhere, File, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Changes from Else&where…"),
      ""},
     {CVCommand::Print, File, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "&Print…"), "Ctrl+P"},
     {CVCommand::PrintPreview, File, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Print Pre&view…"), "Ctrl+Shift+P"},
     {CVCommand::PageSetup, File, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Page Set&up…"), ""},
     {CVCommand::Quit, File, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "&Quit"), "Ctrl+Q"},
     {CVCommand::SetCategory, Edit, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "Set Cate&gory…"), ""},
     {CVCommand::Remove, Edit, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Remove Transactions"), "Del"},
     {CVCommand::TakeBackImport, Edit, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Take &Back Import"), ""},
     {CVCommand::Find, Edit, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "&Find"), "Ctrl+F"},
     {CVCommand::DetectDuplicates, Edit, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Detect Duplicates"),
      "Ctrl+Alt+D"},
     {CVCommand::Preferences, Edit, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "Pr&eferences…"), "Ctrl+,"},
     {CVCommand::ShowTransactions, View, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Transactions"), "Ctrl+1"},
     {CVCommand::ShowSummary, View, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Summary"), "Ctrl+2"},
     {CVCommand::ShowReports, View, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Reports"), "Ctrl+3"},
     {CVCommand::PreviousPeriod, View, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "&Previous Period"), "Ctrl+Left"},
     {CVCommand::NextPeriod, View, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Next Period"), "Ctrl+Right"},
     {CVCommand::Today, View, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "T&oday"), "Ctrl+T"},
     {CVCommand::Record, Budget, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Record"), "Ctrl+Return; Ctrl+Enter"},
     {CVCommand::RecordAgain, Budget, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Record &Again"), "Ctrl+D"},
     {CVCommand::PlanVsActual, Budget, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "&Plan vs Actual"), ""},
     {CVCommand::EditCategories, Budget, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "Edit &Categories…"),
      "Ctrl+Shift+C"},
     {CVCommand::TransactionSets, Budget, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Transaction Sets…"),
      "Ctrl+Shift+S"},
     {CVCommand::ShowHelp, Help, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Corvella &Help"), "F1"},
     {CVCommand::ContactSupport, Help, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "Contact &Support"), ""},
     {CVCommand::WebSite, Help, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "&Web Site"), ""},
     {CVCommand::SupportForums, Help, Group::Same, QT_TRANSLATE_NOOP("CVMainMenu", "Support &Forums"), ""},
     {CVCommand::CheckForNewVersion, Help, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "Check for &New Version…"), ""},
     {CVCommand::About, Help, Group::New, QT_TRANSLATE_NOOP("CVMainMenu", "&About Corvella"), ""}}};

} // namespace

CVMainMenu::CVMainMenu(QMainWindow& window, CVTableView& table) : QObject(&window), mWindow(window) {
    addCommands();
    addTableCommands(table);
    qApp->installEventFilter(this);
}

/// Gives Ctrl+letter to the menus although the focused text field may use the same key: Ctrl+E moves the cursor on some
/// platforms, and Ctrl+D deletes. A field gets no such key while the command is disabled either.
bool CVMainMenu::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (!isKey || !isKeyOfCommand(static_cast<const QKeyEvent&>(*event)))
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        // The key of an enabled command does not come so far.
        const auto* const widget = qobject_cast<const QWidget*>(watched);
        return widget && widget->window() == &mWindow;
    }
    event->ignore();
    return true;
}

/// Whether a key is Ctrl with the letter of a command.
bool CVMainMenu::isKeyOfCommand(const QKeyEvent& key) const {
    const bool isLetter = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z && key.modifiers() & Qt::ControlModifier;
    const QKeySequence typed(key.keyCombination());
    return isLetter && std::any_of(mActions.begin(), mActions.end(),
                                   [&typed](const QAction* action) { return action->shortcuts().contains(typed); });
}

void CVMainMenu::setEnabled(CVCommand command, bool enabled) {
    mActions[static_cast<std::size_t>(command)]->setEnabled(enabled);
}

void CVMainMenu::addCommands() {
    std::array<QMenu*, kMenus.size()> menus{};
    for (std::size_t i = 0; i < kMenus.size(); ++i)
        menus[i] = mWindow.menuBar()->addMenu(tr(kMenus[i]));
    addEditCommands(*menus[Edit]);
    for (const Entry& entry : kEntries) {
        QMenu& menu = *menus[entry.menu];
        if (entry.group == Group::New)
            menu.addSeparator();
        QAction* const action = menu.addAction(tr(entry.title), this, [this, &entry] { emit chosen(entry.command); });
        action->setShortcuts(QKeySequence::listFromString(QLatin1String(entry.shortcut)));
        mActions[static_cast<std::size_t>(entry.command)] = action;
    }
    new CVModifierMenuItem(*menus[Edit], *mActions[static_cast<std::size_t>(CVCommand::DetectDuplicates)]);
    menus[View]->addSeparator();
    addSortMenu(*menus[View]);
}

void CVMainMenu::addEditCommands(QMenu& menu) {
    for (const EditEntry& entry : kEditEntries) {
        QAction* const action = menu.addAction(tr(entry.title), QKeySequence(entry.shortcut), this,
                                               [this, &entry] { CVEdit(entry.command, mWindow.focusWidget()); });
        // The item is disabled only while the menu is open, because its shortcut must work whenever the field changes.
        connect(&menu, &QMenu::aboutToShow, action,
                [this, action, &entry] { action->setEnabled(CVCanEdit(entry.command, mWindow.focusWidget())); });
        connect(&menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    }
}

void CVMainMenu::addSortMenu(QMenu& menu) {
    mSort = menu.addMenu(tr("Sort &By"));
    for (int column = 0; column < CVTransactionTableModel::ColumnCount; ++column)
        mSort->addAction(makeSortAction(column));
    mSortBySet = makeSortAction(CVTransactionTableModel::Set);
}

QAction* CVMainMenu::makeSortAction(int column) {
    auto* const action = new QAction(CVTransactionText::title(column), this);
    const QString identifier = CVTransactionColumns::identifier(column);
    connect(action, &QAction::triggered, this, [this, identifier] { emit sortRequested(identifier); });
    return action;
}

void CVMainMenu::setSortsBySet(bool sorts) {
    if (sorts)
        mSort->addAction(mSortBySet);
    else
        mSort->removeAction(mSortBySet);
}

void CVMainMenu::addTableCommands(CVTableView& table) {
    QAction* const remove = mActions[static_cast<std::size_t>(CVCommand::Remove)];
    remove->setShortcutContext(Qt::WidgetShortcut);
    remove->setEnabled(false);
    auto* const edit = new QAction(tr("&Edit"), &table);
    connect(edit, &QAction::triggered, &table, &CVTableView::editCurrentCell);
    edit->setEnabled(false);
    // Editing needs what Remove needs: selected rows of a budget that can be changed.
    connect(remove, &QAction::enabledChanged, edit, &QAction::setEnabled);
    mCopyRows = new QAction(tr("&Copy"), &table);
    connect(mCopyRows, &QAction::triggered, &table, [&table] { CVEdit(CVEditCommand::Copy, &table); });
    mCopyRows->setEnabled(false);
    const auto action = [this](CVCommand command) { return mActions[static_cast<std::size_t>(command)]; };
    table.addActions({edit, mCopyRows, action(CVCommand::RecordAgain), action(CVCommand::SetCategory), remove});
    table.setContextMenuPolicy(Qt::ActionsContextMenu);
}
