#pragma once

#include "editors/CVEditorWindow.h"
#include "model/CVCollections.h"

class CVDocument;
class CVEditorTable;
class CVCopyableField;
class CVTransactionWindowModel;
class QLineEdit;

/// The window with the transactions behind a cell of the budget grid, their total, and the plan of their category. Only
/// the flags can be changed here; a change is saved at once. References the document, which outlives it.
class CVTransactionWindowController final : public CVEditorWindow {
    Q_OBJECT

public:
    /// All transactions belong to one category; if they do not, the category of the last one is shown.
    CVTransactionWindowController(CVDocument& document, const CVTransactions& transactions, QWidget* parent = nullptr);

private:
    void addTable();
    void addCategoryField();
    void addAmounts();
    /// The category of the last transaction; null where there is none.
    [[nodiscard]] std::shared_ptr<const CVCategory> category() const;
    /// The text for the planned amount: the category's target and its frequency.
    [[nodiscard]] QString plannedText() const;
    void computeAmounts();
    void showAmounts();
    void toggleFlag(int row);
    void moneyFormatChanged();

    CVDocument& mDocument;
    CVTransactionWindowModel* mModel;
    CVEditorTable* mTransactionTable;
    QLineEdit* mCategoryField;
    CVCopyableField* mSpentField = nullptr;
    CVCopyableField* mPlannedField = nullptr;
    /// The misspelt name is also the control's object name.
    CVCopyableField* mDiffereceField = nullptr;
    double mSpent = 0;
    double mPlanned = 0;
};
