#pragma once

#include "model/CVCollections.h"

/// The windows that are opened from the main window. What is changed in them is announced. The call of an editor
/// returns when its window has been closed, and other events run meanwhile.
class CVDocumentWindows {
public:
    virtual void createCategoryEditController() = 0;
    virtual void createTransactionSetController() = 0;
    /// The transactions behind a cell of the budget grid.
    virtual void createTransactionController(const CVTransactions& transactions) = 0;
    /// Shows the preferences beside the main window and returns at once.
    virtual void createPreferenceController() = 0;

protected:
    ~CVDocumentWindows() = default;
};
