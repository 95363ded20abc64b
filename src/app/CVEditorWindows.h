#pragma once

#include "workspace/CVDocumentWindows.h"

#include <QString>

#include <functional>

class CVDocument;
class CVAlerts;
class CVHelpOpener;
class QWidget;

/// Opens the editors as modal windows of the main window; the application opens the preferences and remarks what an
/// editor has removed or merged. References the document, the alerts, the help and the main window, which exist
/// whenever a window is opened.
class CVEditorWindows final : public CVDocumentWindows {
public:
    /// Without `help` the editors have no Help button.
    CVEditorWindows(CVDocument& document, CVAlerts& alerts, CVHelpOpener* help, QWidget& mainWindow,
                    std::function<void()> showPreferences, std::function<void(int count)> remarkRemoval,
                    std::function<void(const QString& from, const QString& into)> remarkMerge);

    void createCategoryEditController() override;
    void createTransactionSetController() override;
    void createTransactionController(const CVTransactions& transactions) override;
    void createPreferenceController() override { mShowPreferences(); }

private:
    CVDocument& mDocument;
    CVAlerts& mAlerts;
    CVHelpOpener* mHelp;
    QWidget& mMainWindow;
    std::function<void()> mShowPreferences;
    std::function<void(int count)> mRemarkRemoval;
    std::function<void(const QString& from, const QString& into)> mRemarkMerge;
};
