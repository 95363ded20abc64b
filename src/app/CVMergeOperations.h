#pragma once

#include "merging/CVMergeHost.h"
#include "merging/CVMergeSource.h"
#include "merging/CVMergeWindow.h"

#include <QCoreApplication>

#include <memory>

class CVAppDelegate;
class CVDocument;
class CVHelpOpener;
struct CVFilesBeside;

/// What the program does with the changes of other files: offers them in a window and brings them in. Owns the window;
/// references the application, which outlives it.
class CVMergeOperations final : public CVMergeHost {
    Q_DECLARE_TR_FUNCTIONS(CVMergeOperations)

public:
    explicit CVMergeOperations(CVAppDelegate& app);
    ~CVMergeOperations();

    /// Without it the window has no Help button. The help outlives the object.
    void setHelp(CVHelpOpener* help) { mHelp = help; }
    /// Shows another file's changes, or adds it to those of which the open window lets the user choose one. Called once
    /// there is a main window.
    void offer(const CVMergeSource& source, CVMergeWindow::Asked asked = CVMergeWindow::Asked::ByUser);
    /// Shows the changes of all files beside the data file that may have some, or says that there is none, once the
    /// folder was looked through.
    void showAll();
    /// The budget of another data file, or the same read anew, took the place of the former document.
    void setDocument(CVDocument& document);

    int bringIn(const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& lines) override;

    /// Null until something is first offered.
    [[nodiscard]] CVMergeWindow* window() { return mWindow.get(); }

private:
    void show(const CVFilesBeside& files);
    void showInFront(CVMergeWindow::Asked asked);

    CVAppDelegate& mApp;
    CVHelpOpener* mHelp = nullptr;
    /// The data file whose budget the offered files are compared with.
    QString mDataFile;
    std::unique_ptr<CVMergeWindow> mWindow;
};
