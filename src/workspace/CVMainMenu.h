#pragma once

#include <QAction>
#include <QObject>
#include <QString>

#include <array>

class CVTableView;
class QKeyEvent;
class QMainWindow;
class QMenu;

/// The commands of the main window's menus.
enum class CVCommand {
    Import,
    ImportFromClipboard,
    Export,
    EarlierVersions,
    ChangesFromElsewhere,
    Print,
    PrintPreview,
    PageSetup,
    Quit,
    SetCategory,
    Remove,
    TakeBackImport,
    Find,
    DetectDuplicates,
    Preferences,
    ShowTransactions,
    ShowSummary,
    ShowReports,
    PreviousPeriod,
    NextPeriod,
    Today,
    Record,
    RecordAgain,
    PlanVsActual,
    EditCategories,
    TransactionSets,
    ShowHelp,
    ContactSupport,
    WebSite,
    SupportForums,
    CheckForNewVersion,
    About
};
inline constexpr std::size_t kCVCommands = static_cast<std::size_t>(CVCommand::About) + 1;

/// The menus of the main window, with every command once and its shortcut. A chosen command is announced; only the
/// commands of the Edit menu that concern the focused widget are carried out here.
class CVMainMenu final : public QObject {
    Q_OBJECT

public:
    /// Fills the menu bar of `window`. The shortcut of Remove Transactions works in `table` alone, so that Delete keeps
    /// its meaning elsewhere.
    CVMainMenu(QMainWindow& window, CVTableView& table);

    /// A disabled command is greyed out, and its shortcut does nothing.
    void setEnabled(CVCommand command, bool enabled);
    /// Does so for the Copy command of the table's own menu.
    void setCopyRowsEnabled(bool enabled) { mCopyRows->setEnabled(enabled); }
    /// Whether the list, which then has the column of the sets, can be sorted by set.
    void setSortsBySet(bool sorts);

signals:
    void chosen(CVCommand command);
    void sortRequested(const QString& identifier);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isKeyOfCommand(const QKeyEvent& key) const;
    void addCommands();
    void addEditCommands(QMenu& menu);
    void addSortMenu(QMenu& menu);
    QAction* makeSortAction(int column);
    void addTableCommands(CVTableView& table);

    QMainWindow& mWindow;
    std::array<QAction*, kCVCommands> mActions{};
    QAction* mCopyRows = nullptr;
    QMenu* mSort = nullptr;
    /// The menu has it only while all sets are listed.
    QAction* mSortBySet = nullptr;
};
