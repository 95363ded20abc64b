#pragma once

#include "UsualBudget.h"
#include "differences/CVBringIn.h"
#include "differences/CVBudgetDifferences.h"
#include "differences/CVMergeBudgets.h"
#include "model/CVDetachedDocument.h"

#include <gtest/gtest.h>

inline BudgetBuilder::Entry purchaseOf(double amount, const QString& payTo = "Market",
                                       const QString& category = "Food") {
    return {.date = day(2014, 3, 7), .amount = amount, .payTo = payTo, .category = category, .set = "Checking"};
}

/// Brings all differences in, as the window does.
inline int bringAllIn(CVDocument& present, const CVDocument& ours, const CVMergedBudget& merged) {
    return CVBringIn(present, **merged.budget, ours, CVBudgetDifferences::between(**merged.budget, ours, &ours));
}

/// A usual budget on all sides, which a test then changes.
class MergedRecordsFixture : public testing::Test {
protected:
    void SetUp() override {
        for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
            usual(*budget);
    }
    void merge() { mMerged = CVMergeBudgets(&mCommon.document(), mOurs.document(), mTheirs.document()); }
    /// "ID NAME TARGET" for each category.
    [[nodiscard]] QStringList categories() const {
        QStringList texts;
        for (const auto& category : (*mMerged.budget)->categories())
            texts.append(QString::number(category->uniqueID()) + ' ' + category->categoryName() + ' ' +
                         QString::number(category->expenseTarget()));
        return texts;
    }
    [[nodiscard]] QStringList sets() const {
        QStringList texts;
        for (const auto& set : (*mMerged.budget)->transactionSets())
            texts.append(QString::number(set->uniqueID()) + ' ' + set->transactionSetName());
        return texts;
    }

    BudgetBuilder mCommon;
    BudgetBuilder mOurs;
    BudgetBuilder mTheirs;
    CVMergedBudget mMerged;
};
