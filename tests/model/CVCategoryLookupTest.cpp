#include "model/CVCategoryLookup.h"

#include "kit/RandomBudget.h"

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

TEST(CVCategoryLookup, AnswersAsTheDocumentDoes) {
    for (quint32 seed = 0; seed < 300; ++seed) {
        RandomBudget budget(seed);
        const CVDocument& document = budget.document();
        const CVCategoryLookup lookup(document.categories());
        for (quint32 id = 0; id < 12; ++id)
            ASSERT_EQ(lookup.find(id), document.getCategoryByUniqueID(id).get());
    }
}

} // namespace
