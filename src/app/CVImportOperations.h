#pragma once

#include "app/CVBudgetImports.h"
#include "base/CVLatestWork.h"
#include "importing/CVTakeBackImport.h"
#include "importing/budgets/CVBudgetFileKind.h"
#include "importing/panel/CVImportWindow.h"

#include <optional>
#include <vector>

class CVAlerts;
class CVAppDelegate;
class CVDocument;
class CVFilePanels;
class CVHelpOpener;

/// What the program does with statements and other budgets: shows them in a window, imports them, remembers what
/// statements taught, and takes imports back until the program ends. References the application, the alerts and the
/// panels, which outlive it.
class CVImportOperations final : public QObject {
    Q_OBJECT

public:
    CVImportOperations(CVAppDelegate& app, CVAlerts& alerts, CVFilePanels& panels);

    /// Without it the window has no Help button. The help outlives the object.
    void setHelp(CVHelpOpener* help);

    /// These return when the window with the statement is closed; that with another budget stays open beside the main
    /// window. They do nothing while another window waits for an
    /// answer, which is brought to the front, or while the budget is only looked at.
    void importChosenFile();
    void importFile(const QString& path);
    void importClipboard();
    /// Takes back the last import that was not taken back yet; asks about transactions that were edited since.
    void takeBack();
    /// The imports are of a document that is being replaced.
    void forget();
    /// The document that took its place.
    void setDocument(CVDocument& document) { mBudgets.setDocument(document); }

    [[nodiscard]] CVBudgetImports& budgets() { return mBudgets; }

private:
    /// What a file turned out to be.
    struct Recognized {
        CVBudgetFileKind kind = CVBudgetFileKind::None;
        bool isOwn = false;
    };

    struct Import {
        CVImported imported;
        /// What was remembered before it; nothing where it was another budget.
        CVImportNotes notesBefore;
    };

    [[nodiscard]] bool mayImport() const;
    /// Absent where the disk does not answer in time.
    [[nodiscard]] std::optional<Recognized> recognize(const QString& path);
    void show(const CVImportWindow::Source& source);
    void add(CVImported imported, CVImportNotes notesBefore);
    /// Whether the transactions are imported.
    bool carryOut(const CVImportWindow::Order& order);
    /// Absent when the user keeps the import.
    [[nodiscard]] std::optional<CVEditedTransactions> askAboutEdited(int count);
    void learn(const CVImportWindow::Order& order, const CVImported& imported);
    /// On a thread, because the disk may not answer.
    void write(const CVImportNotes& notes);
    void tell(const QString& remark);

    CVAppDelegate& mApp;
    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    CVHelpOpener* mHelp = nullptr;
    CVBudgetImports mBudgets;
    /// The last one at the end.
    std::vector<Import> mImports;
    /// As they were written last.
    CVImportNotes mNotes;
    CVLatestWork mWriting;
    CVLatestWork mRecognizing;
};
