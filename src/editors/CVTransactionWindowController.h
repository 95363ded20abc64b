#pragma once

#include "editors/CVEditorWindow.h"
#include "model/CVDocument.h"

class CVEditorTable;
class CVFigureField;
class CVTransactionWindowModel;
class QLineEdit;

/// The window with the transactions behind a cell of the budget grid, what they come to, and the plan of their
/// category. Their flags alone can be changed here, which is saved at once. References the document, which outlives it.
class CVTransactionWindowController final : public CVEditorWindow {
    Q_OBJECT

public:
    /// The transactions are those of one category: the last one's counts.
    CVTransactionWindowController(CVDocument& document, const CVDocument::Transactions& transactions,
                                  QWidget* parent = nullptr);

private:
    void addTable();
    void addCategoryField();
    void addFigures();
    /// Of the last transaction; null where there is none.
    [[nodiscard]] std::shared_ptr<const CVCategory> category() const;
    /// What the planned amount is: the category's target, with the frequency that it is meant for.
    [[nodiscard]] QString plannedText() const;
    void computeFigures();
    void showFigures();
    void toggleFlag(int row);
    void moneyFormatChanged();

    CVDocument& mDocument;
    CVTransactionWindowModel* mModel;
    CVEditorTable* mTransactionTable;
    QLineEdit* mCategoryField;
    CVFigureField* mSpentField = nullptr;
    CVFigureField* mPlannedField = nullptr;
    /// The letter that is missing is missing in the name.
    CVFigureField* mDiffereceField = nullptr;
    double mSpent = 0;
    double mPlanned = 0;
};
