#pragma once

#include "model/CVDocument.h"

/// The windows that are opened from the main window. Each call returns when its window has been closed, having
/// announced what was changed in it; other events run meanwhile.
class CVDocumentWindows {
public:
    virtual void createCategoryEditController() = 0;
    virtual void createTransactionSetController() = 0;
    /// The transactions behind a cell of the budget grid.
    virtual void createTransactionController(const CVDocument::Transactions& transactions) = 0;

protected:
    ~CVDocumentWindows() = default;
};
