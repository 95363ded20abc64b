#pragma once

#include "contents/CVBudgetContents.h"
#include "contents/CVPaidToList.h"
#include "workspace/printing/CVPrintCommands.h"

#include <QObject>

#include <functional>
#include <memory>

class CVAlerts;
class CVDocument;
class CVDocumentWindows;
class CVFilePanels;
class CVMainWindow;
class CVMainWindowCommands;
class CVPrintPanels;
class CVReportsTabController;
class CVSaveStatus;
class CVSummaryTabController;
class CVTransactionsTabController;
class QMainWindow;
enum class CVCommand;
struct CVEntryProblem;

/// Owns the main window and the order of things in it: set-up, recording, and what is shown anew after every change.
/// Its parts carry out what is done in each tab, printing, and the commands. References the document, the alerts and
/// the panels, which outlive it.
class CVMainWindowController final : public QObject {
    Q_OBJECT

public:
    CVMainWindowController(CVDocument& document, CVAlerts& alerts, CVFilePanels& panels);
    ~CVMainWindowController() override;

    void showWindow();
    [[nodiscard]] QMainWindow* window() const;
    [[nodiscard]] CVSaveStatus& saveStatus() const;
    /// Is asked before the window closes; a false answer keeps it open. Without one it always closes.
    void setMayClose(std::function<bool()> mayClose);
    /// Whether the window has gone back to a cell whose text cannot be read, and has said why; once for each text.
    [[nodiscard]] bool returnToUnreadable();

    /// Opens the further windows; without it none opens. Outlives the controller.
    void setDocumentWindows(CVDocumentWindows* windows);
    /// Through which everything is printed; without them nothing is. They outlive the controller.
    void setPrintPanels(CVPrintPanels* panels);

    /// Rebuilds everything that depends on the current transaction set.
    void getStarted();
    /// Shows the tables of the visible tab anew.
    void reloadAllTables();
    /// Makes the set at that position of the document's sets the current one.
    void changeTransactionSet(int index);

    /// Records what the entry strip holds, or says why not.
    void record();
    /// Removes the selected transactions once the user has confirmed it.
    void removeTransaction();
    /// Shows the transactions, and selects what looks as if it was entered twice.
    void detectDuplicates();
    /// Writes the listed transactions to a file of the user's choice.
    void exportTransactions();

    /// Print the transactions as they are listed, the grid, or the report that is chosen; or show the pages.
    void printTransactions(CVPrintWay way);
    void printSummary(CVPrintWay way);
    void printReport(CVPrintWay way);
    void printShownTab(CVPrintWay way);
    void setUpPage();

    /// Open the further windows; without document windows they do nothing.
    void editCategories();
    void showPreferences();
    void handleTransactionSets();

signals:
    /// A command was chosen that concerns the application, not this window.
    void applicationCommandChosen(CVCommand command);

private:
    void windowDidLoad();
    void readViewState();
    void restoreFrame();
    void saveFrame() const;
    void connectWindow();
    void connectParts();
    void observeNotifications();

    void mainSetup();
    void setDateFieldsFromPopUp();
    void presetPicked();
    void showTransactionSets();
    void updatePaidToAutocomplete();
    void tabSelected(int index);
    void updateCommands();
    void showProblem(const CVEntryProblem& problem);

    void showCategoryItems();
    void handleCategoryUpdate();
    void transactionUpdated();
    void preferenceChanged();
    void moneyFormatChanged();
    void handleLocaleChange();

    CVDocument& mDocument;
    CVAlerts& mAlerts;
    CVDocumentWindows* mDocumentWindows = nullptr;
    CVBudgetContents mContents;
    CVPaidToList mPaidToList;
    CVPrintCommands mPrintCommands;
    /// By CVMainWindow::Tab.
    int mDisplayTab = 0;
    /// While the window is (re)built: what its controls report then is no choice of the user's.
    bool _cv_setting_up = false;
    std::unique_ptr<CVMainWindow> mWindow;
    std::unique_ptr<CVTransactionsTabController> mTransactionsTab;
    std::unique_ptr<CVSummaryTabController> mSummaryTab;
    std::unique_ptr<CVReportsTabController> mReportsTab;
    std::unique_ptr<CVMainWindowCommands> mCommands;
};
