#include "model/CVCategoryLookup.h"

#include "kit/RandomBudget.h"
#include "model/CVCompareTransactions.h"

#include <gtest/gtest.h>

namespace {

TEST(CVCategoryLookup, FindsTheFirstCategoryOfAnID) {
    BudgetBuilder budget;
    budget.category("a", 1).category("b", 2).category("c", 2);
    const CVCategoryLookup lookup(budget.document().categories());
    EXPECT_EQ(lookup.find(1), budget.categoryNamed("a").get());
    EXPECT_EQ(lookup.find(2), budget.categoryNamed("b").get());
    EXPECT_EQ(lookup.find(0), nullptr);
    EXPECT_EQ(lookup.find(3), nullptr);
}

TEST(CVCategoryLookup, RanksNamesWithoutRegardToCase) {
    BudgetBuilder budget;
    budget.category("zoo", 1).category("FOOD", 2).category("food", 3).category("Auto", 4).category(QString(), 5);
    budget.category("", 6).category("aaa", 4);
    const auto ranks = CVCategoryLookup(budget.document().categories()).nameRanks();
    EXPECT_EQ(ranks.size(), 5U);
    EXPECT_EQ(ranks.at(2), ranks.at(3));
    EXPECT_LT(ranks.at(6), ranks.at(4));
    EXPECT_LT(ranks.at(4), ranks.at(2));
    EXPECT_LT(ranks.at(2), ranks.at(1));
    EXPECT_FALSE(ranks.contains(5)) << "a category without a name has no place in the order";
}

TEST(CVCategoryLookup, AnswersAsTheDocumentDoes) {
    for (quint32 seed = 0; seed < 300; ++seed) {
        RandomBudget budget(seed);
        const CVDocument& document = budget.document();
        const CVCategoryLookup lookup(document.categories());
        const auto ranks = lookup.nameRanks();
        const auto nameOf = [&](quint32 id) {
            const auto category = document.getCategoryByUniqueID(id);
            return category ? category->categoryName() : QString();
        };
        for (quint32 a = 0; a < 12; ++a) {
            ASSERT_EQ(lookup.find(a), document.getCategoryByUniqueID(a).get());
            ASSERT_EQ(ranks.contains(a), !nameOf(a).isNull());
            for (quint32 b = 0; b < 12; ++b) {
                if (!ranks.contains(a) || !ranks.contains(b))
                    continue;
                const int byRank = (ranks.at(a) > ranks.at(b)) - (ranks.at(a) < ranks.at(b));
                ASSERT_EQ(byRank, CVCompareTexts(nameOf(a), nameOf(b))) << seed;
            }
        }
    }
}

} // namespace
