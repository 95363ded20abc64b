#pragma once

#include "contents/CVBudgetRows.h"
#include "contents/CVGridContents.h"
#include "contents/CVPaidToList.h"
#include "contents/CVReportContents.h"
#include "contents/CVTransactionList.h"
#include "workspace/printing/CVPrintCommands.h"

#include <QObject>

#include <functional>
#include <memory>

class CVAlerts;
class CVDocument;
class CVDocumentWindows;
class CVFilePanels;
class CVMainWindow;
class CVPrintPanels;
class CVSaveStatus;
class QMainWindow;
enum class CVCommand;
struct CVEntryProblem;

/// Owns the main window and the order of things in it: set-up, recording, editing, removal, and the rebuild after every
/// change. References the document, the alerts and the panels, which outlive it.
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

    /// Opens the further windows; without it none opens. Outlives the controller.
    void setDocumentWindows(CVDocumentWindows* windows);
    /// Through which everything is printed; without them nothing is. They outlive the controller.
    void setPrintPanels(CVPrintPanels* panels);

    /// Rebuilds everything that depends on the current transaction set.
    void getStarted();
    /// Shows the tables of the visible tab anew.
    void reloadAllTables();

    /// Records what the entry strip holds, or says why not.
    void record();
    /// Removes the selected transactions once the user has confirmed it.
    void removeTransaction();
    /// Selects what looks as if it was entered twice.
    void detectDuplicates();
    /// Writes the listed transactions to a file of the user's choice.
    void exportTransactions();
    /// Print the transactions as they are listed, the grid, and the report tab that is chosen; or show the pages.
    void printTransactions(CVPrintWay way);
    void printSummary(CVPrintWay way);
    void printReport(CVPrintWay way);
    /// Makes the set at that position of the document's sets the current one.
    void changeTransactionSet(int index);
    /// Open the editors; without document windows they do nothing.
    void editCategories();
    void showPreferences();
    void handleTransactionSets();

signals:
    /// A command was chosen that concerns the application, not this window.
    void applicationCommandChosen(CVCommand command);

private:
    enum Tab { kTransactions, kSummary, kReports };

    void windowDidLoad();
    void readViewState();
    void selectViewState();
    void restoreFrame();
    void saveFrame() const;

    void connectWindow();
    void connectTransactionsTab();
    void connectSummaryTab();
    void connectReportsTab();
    void observeNotifications();
    void choose(CVCommand command);
    void updateCommands();

    void mainSetup();
    void setDateFieldsFromPopUp();
    void showList();
    void showTransactionSets();
    void updatePaidToAutocomplete();
    void tabSelected(int index);
    void reportTabSelected(int index);

    void showCategoryItems();
    void handleCategoryUpdate();
    void transactionUpdated();
    void preferenceChanged();
    void moneyFormatChanged();
    void handleLocaleChange();

    void sortByColumn(const QString& identifier);
    void setSearchText(const QString& text);
    void setSearchType(int kind);
    void setTransactionDateRange(int preset);
    /// Only the end that was entered is held back to what is allowed.
    void setTransactionStart(const QBDate& start);
    void setTransactionEnd(const QBDate& end);
    void setObjectValue(int row, int column, const QVariant& value);
    void writeExport(const QString& path);

    void setTimePeriod(int periodType);
    void showPeriods(void (CVDisplayPeriods::*move)());
    void goToToday();
    void showCell(int row, int column);

    void setReportDateRange(int preset);
    void setReportStart(const QBDate& start);
    void setReportEnd(const QBDate& end);
    void setFrequency(int row, int code);
    void setTarget(int row, double target);

    [[nodiscard]] CVDocument::Categories categoryRows() const;
    void reloadGrid();
    void reloadReports();
    void printShownTab(CVPrintWay way);

    void showProblem(const CVEntryProblem& problem);

    CVDocument& mDocument;
    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    CVDocumentWindows* mDocumentWindows = nullptr;
    /// The day on which the window was opened, however long it stays open.
    QBDate mToday;
    CVTransactionList mList;
    CVPaidToList mPaidToList;
    CVGridContents mGrid;
    CVReportContents mReports;
    CVPrintCommands mPrintCommands;
    int mDisplayTab = kTransactions;
    int mReportTab = 0;
    /// While the window is (re)built: what its controls report then is no choice of the user's.
    bool _cv_setting_up = false;
    /// While a cell of the list is edited: its rows stay, whatever they were searched for.
    bool mKeepsRows = false;
    std::unique_ptr<CVMainWindow> mWindow;
};
