#pragma once

#include "model/CVCollections.h"

/// Opens the windows that belong to the main window. Each window posts a notification for its changes. The functions of
/// the editors return when their window has been closed; other events run meanwhile.
class CVDocumentWindows {
public:
    virtual void createCategoryEditController() = 0;
    virtual void createTransactionSetController() = 0;
    /// `transactions` are those behind a cell of the budget grid.
    virtual void createTransactionController(const CVTransactions& transactions) = 0;
    /// Shows the preferences beside the main window and returns at once.
    virtual void createPreferenceController() = 0;

protected:
    ~CVDocumentWindows() = default;
};
