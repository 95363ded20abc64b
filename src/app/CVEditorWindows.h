#pragma once

#include "workspace/CVDocumentWindows.h"

class CVAlerts;
class QWidget;

/// Opens the editors as modal windows of the main window. References the document, the alerts and the main window,
/// which outlive it.
class CVEditorWindows final : public CVDocumentWindows {
public:
    CVEditorWindows(CVDocument& document, CVAlerts& alerts, QWidget& mainWindow);

    void createCategoryEditController() override;
    void createTransactionSetController() override;
    void createTransactionController(const CVDocument::Transactions& transactions) override;

private:
    CVDocument& mDocument;
    CVAlerts& mAlerts;
    QWidget& mMainWindow;
};
