#include "generator/CVHouseholdBudget.h"

#include "kit/Day.h"
#include "model/CVCategory.h"
#include "model/CVDetachedDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <gmock/gmock.h>

#include <set>

namespace {

class CVHouseholdBudgetTest : public testing::Test {
public:
    CVHouseholdBudgetTest() { CVFillHouseholdBudget(*mDocument, day(2026, 11, 22)); }

    /// The different "Set: Category" pairs of all transactions.
    [[nodiscard]] std::set<std::string> uses() const {
        std::set<std::string> uses;
        for (const auto& transaction : mDocument->transactions()) {
            const auto set = mDocument->findTransactionSetFromID(transaction->transactionSetID());
            const auto category = mDocument->getCategoryByUniqueID(transaction->categoryID());
            uses.insert(QString("%1: %2").arg(set->transactionSetName(), category->categoryName()).toStdString());
        }
        return uses;
    }

    mutable CVDetachedDocument mDocument;
};

TEST_F(CVHouseholdBudgetTest, KeepsIncomeInASetOfItsOwn) {
    using testing::Contains;
    using testing::EndsWith;
    using testing::StartsWith;
    EXPECT_THAT(uses(), Contains("Income: Salary"));
    EXPECT_THAT(uses(), Contains(StartsWith("Income: ")).Times(1));
    EXPECT_THAT(uses(), Contains(EndsWith(": Salary")).Times(1));
    EXPECT_THAT(uses(), Contains("Checking: Groceries"));
    EXPECT_THAT(uses(), Contains("Savings: Savings"));
}

TEST_F(CVHouseholdBudgetTest, ShowsWhatIsSpentFirst) {
    ASSERT_EQ(mDocument->countOfTransactionSets(), 3U);
    EXPECT_EQ(
        mDocument->objectInTransactionSetsAtIndex(mDocument->popupIndexOfCurrentTransactionSet())->transactionSetName(),
        "Checking");
}

TEST_F(CVHouseholdBudgetTest, IsTheSameOnTheSameDay) {
    CVDetachedDocument again;
    CVFillHouseholdBudget(*again, day(2026, 11, 22));
    ASSERT_EQ(again->transactions().size(), mDocument->transactions().size());
    for (std::size_t i = 0; i < again->transactions().size(); ++i)
        EXPECT_EQ(again->transactions()[i]->amount(), mDocument->transactions()[i]->amount()) << i;
}

} // namespace
