#pragma once

#include "base/CVLatestWork.h"
#include "importing/CVTakeBackImport.h"
#include "importing/panel/CVImportWindow.h"

#include <optional>
#include <vector>

class CVAlerts;
class CVAppDelegate;
class CVFilePanels;
class CVHelpOpener;

/// What the program does with statements: shows them in a window, imports them, remembers what they taught, and takes
/// imports back until the program ends. References the application, the alerts and the panels, which outlive it.
class CVImportOperations final : public QObject {
    Q_OBJECT

public:
    CVImportOperations(CVAppDelegate& app, CVAlerts& alerts, CVFilePanels& panels);

    /// Without it the window has no Help button. The help outlives the object.
    void setHelp(CVHelpOpener* help) { mHelp = help; }

    /// These return when the window with the statement is closed. They do nothing while another window waits for an
    /// answer, which is brought to the front, or while the budget is only looked at.
    void importChosenFile();
    void importFile(const QString& path);
    void importClipboard();
    /// Takes back the last import that was not taken back yet; asks about transactions that were edited since.
    void takeBack();
    /// The imports are of a document that was replaced.
    void forget();

private:
    [[nodiscard]] bool mayImport() const;
    void show(const CVImportWindow::Source& source);
    void carryOut(const CVImportWindow::Order& order);
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
    /// The last one at the end.
    std::vector<CVImported> mImports;
    /// As they were written last.
    CVImportNotes mNotes;
    CVLatestWork mWriting;
};
