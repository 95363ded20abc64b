#pragma once

#include "importing/CVImportIntoBudget.h"
#include "merging/CVMergeHost.h"
#include "merging/CVMergeWindow.h"

#include <functional>
#include <memory>

class CVAppDelegate;
class CVDocument;
class CVHelpOpener;

/// What the program does with another budget that is imported: shows in a window what it has and ours has not, and
/// brings that in. Owns the window; references the application, which outlives it.
class CVBudgetImports final : public CVMergeHost {
public:
    /// Called with what has come in, at once.
    using Told = std::function<void(CVImported imported)>;

    CVBudgetImports(CVAppDelegate& app, Told told);
    ~CVBudgetImports();

    /// Without it the window has no Help button. The help outlives the object.
    void setHelp(CVHelpOpener* help) { mHelp = help; }
    /// Shows a file, which takes the place of another one. Called once there is a main window.
    void offer(const QString& path);
    /// The budget of another data file, or the same read anew, took the place of the former document.
    void setDocument(CVDocument& document);

    int bringIn(const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& lines) override;

    /// Null until something is first offered.
    [[nodiscard]] CVMergeWindow* window() { return mWindow.get(); }

private:
    void showInFront();

    CVAppDelegate& mApp;
    Told mTold;
    CVHelpOpener* mHelp = nullptr;
    /// The data file whose budget the file is imported into.
    QString mDataFile;
    std::unique_ptr<CVMergeWindow> mWindow;
};
