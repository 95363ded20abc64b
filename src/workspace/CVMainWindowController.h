#pragma once

#include "contents/CVBudgetContents.h"
#include "workspace/controls/CVSaveStatus.h"
#include "workspace/printing/CVPrintCommands.h"

#include <QObject>

#include <functional>
#include <memory>

class CVAlerts;
class CVDocument;
class CVDocumentWindows;
class CVEntryController;
class CVFilePanels;
class CVMainWindow;
class CVMainWindowCommands;
class CVPrintPanels;
class CVReportsTabController;
class CVSummaryTabController;
class CVTransactionsTabController;
class QMainWindow;
enum class CVCommand;

/// Owns the main window and coordinates its parts: sets them up and reloads what is shown after a change. A part
/// carries out the actions of each tab, the entry, printing and the commands. References the document, the alerts and
/// the panels, which outlive it.
class CVMainWindowController final : public QObject {
    Q_OBJECT

public:
    CVMainWindowController(CVDocument& document, CVAlerts& alerts, CVFilePanels& panels);
    ~CVMainWindowController() override;

    void showWindow();
    [[nodiscard]] QMainWindow* window() const;
    [[nodiscard]] CVSaveStatus& saveStatus() const;
    /// Sets the function that decides whether the window may close; without one the window always closes.
    void setMayClose(std::function<bool()> mayClose);
    /// Gives the focus back to a cell whose text cannot be read and says why. False when no cell has such a text or the
    /// user was led to this text before.
    [[nodiscard]] bool returnToUnreadable();

    /// Says why the budget of a read-only document cannot be changed.
    void showReadOnly(const QString& why);

    /// Sets what opens the editors and the preferences; without it these commands are disabled. `windows` outlives the
    /// controller.
    void setDocumentWindows(CVDocumentWindows* windows);
    /// Sets the panels for printing; without them the print commands are disabled. The panels outlive the controller.
    void setPrintPanels(CVPrintPanels* panels);

    /// Rebuilds everything that depends on the shown transaction sets. All sets stay shown while there are several.
    void getStarted();
    /// Computes and shows the tables of the visible tab again.
    void reloadAllTables();
    /// Makes the set at that position of the document's sets the current one, and shows it alone.
    void changeTransactionSet(int index);
    /// Shows all sets, where there are several. The current one stays what it is, and nothing is stored.
    void showAllSets();
    [[nodiscard]] bool showsAllSets() const;

    /// Records the contents of the entry strip, or shows an alert with their first problem.
    void record();
    /// Whether there is an import that can be taken back.
    void setCanTakeBackImport(bool can);
    /// Puts the selected transaction into the entry strip with today's date.
    void recordAgain();
    /// Opens the window in which the user gives the selected transactions one category.
    void setCategory();
    /// Removes the selected transactions once the user has confirmed it.
    void removeTransaction();
    /// Says in the status line how many transactions went, and leads to the earlier versions where they are kept.
    void remarkRemoval(int count);
    /// Says in the status line which categories were merged, and leads to the earlier versions where they are kept.
    void remarkMerge(const QString& from, const QString& into);
    /// Says in the status line how many transactions got a category.
    void remarkCategory(int count, const QString& name) const;
    /// Shows the list and selects the transactions that were probably entered twice.
    void detectDuplicates();
    /// Writes the listed transactions to a file that the user chooses.
    void exportTransactions();

    /// These four print or preview the list as shown, the budget grid, the chosen report, or the one of the visible
    /// tab.
    void printTransactions(CVPrintWay way);
    void printSummary(CVPrintWay way);
    void printReport(CVPrintWay way);
    void printShownTab(CVPrintWay way);
    void setUpPage();

    /// These three open an editor or the preferences; they do nothing without document windows.
    void editCategories();
    void showPreferences();
    void handleTransactionSets();

signals:
    /// The user chose a command that concerns the application, not this window.
    void applicationCommandChosen(CVCommand command);
    /// The user has dropped a file on the window.
    void fileDropped(const QString& path);
    /// The user wants to change the budget that is only looked at.
    void editingRequested();

private:
    void windowDidLoad();
    void readViewState();
    void connectWindow();
    void connectParts();
    void observeNotifications();

    void mainSetup();
    void setDateFieldsFromPopUp();
    void presetPicked();
    void showTransactionSets();
    void tabSelected(int index);
    void updateCommands();
    [[nodiscard]] CVSaveStatus::Offer offerOfVersions() const;
    void handleCategoryUpdate();
    void transactionUpdated();
    void preferenceChanged();
    void moneyFormatChanged();
    void handleLocaleChange();

    CVDocument& mDocument;
    CVDocumentWindows* mDocumentWindows = nullptr;
    CVBudgetContents mContents;
    CVPrintCommands mPrintCommands;
    /// The index of the visible tab, a CVMainWindow::Tab.
    int mDisplayTab = 0;
    /// True while the window is set up; signals of its controls are then not choices of the user.
    bool _cv_setting_up = false;
    bool mCanTakeBackImport = false;
    std::unique_ptr<CVMainWindow> mWindow;
    std::unique_ptr<CVEntryController> mEntryController;
    std::unique_ptr<CVTransactionsTabController> mListController;
    std::unique_ptr<CVSummaryTabController> mSummaryController;
    std::unique_ptr<CVReportsTabController> mReportsController;
    std::unique_ptr<CVMainWindowCommands> mCommands;
};
