#include "contents/CVBudgetRows.h"

#include "kit/BudgetBuilder.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<QString> names(const CVCategories& categories) {
    std::vector<QString> names;
    for (const auto& category : categories)
        names.push_back(category->categoryName());
    return names;
}

struct RowsOfABudget : testing::Test {
    RowsOfABudget() {
        // The order is neither that of the names nor that of the IDs.
        budget.currentSet(7)
            .category(QStringLiteral("Food"), 3)
            .category(QStringLiteral("Car"), 9)
            .category(QStringLiteral("Home"), 1)
            .transaction({.date = day(2014, 3, 7), .amount = 1, .categoryID = 1, .setID = 7})
            .transaction({.amount = 0, .categoryID = 3, .setID = 7})
            .transaction({.date = day(2014, 3, 7), .amount = 1, .categoryID = 9, .setID = 8})
            .transaction({.date = day(2014, 3, 7), .amount = 1, .categoryID = 77, .setID = 7});
    }

    [[nodiscard]] std::vector<QString> rows(CVShowUnused showUnused) {
        return names(buildCategoryArray(budget.document(), showUnused));
    }

    BudgetBuilder budget;
};

TEST_F(RowsOfABudget, AreTheCategoriesThatTheCurrentSetUsesInTheDocumentsOrder) {
    EXPECT_THAT(rows(CVShowUnused::No), ElementsAre("Food", "Home"));
    budget.currentSet(8);
    EXPECT_THAT(rows(CVShowUnused::No), ElementsAre("Car"));
    budget.currentSet(9);
    EXPECT_THAT(rows(CVShowUnused::No), IsEmpty());
}

TEST_F(RowsOfABudget, AreAllCategoriesWhenTheUnusedOnesAreShownToo) {
    EXPECT_THAT(rows(CVShowUnused::Yes), ElementsAre("Food", "Car", "Home"));
}

TEST_F(RowsOfABudget, AreUsedTogetherWhereCategoriesShareAnID) {
    budget.category(QStringLiteral("Food again"), 3);
    EXPECT_THAT(rows(CVShowUnused::No), ElementsAre("Food", "Home", "Food again"));
}

TEST(BudgetRows, AreNoneWithoutCategories) {
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 7), .amount = 1});
    EXPECT_THAT(buildCategoryArray(budget.document(), CVShowUnused::No), IsEmpty());
    EXPECT_THAT(buildCategoryArray(budget.document(), CVShowUnused::Yes), IsEmpty());
}

TEST(BudgetRows, ShowTheUnusedCategoriesWhenTheLowByteOfThePreferenceIsOne) {
    struct Row {
        int preference;
        CVShowUnused showUnused;
    };
    constexpr std::array kRows{Row{0, CVShowUnused::No},
                               Row{1, CVShowUnused::Yes},
                               Row{2, CVShowUnused::No},
                               Row{3, CVShowUnused::No},
                               Row{-1, CVShowUnused::No},
                               Row{256, CVShowUnused::No},
                               Row{257, CVShowUnused::Yes},
                               Row{-255, CVShowUnused::Yes},
                               Row{std::numeric_limits<int>::min() + 1, CVShowUnused::Yes},
                               Row{std::numeric_limits<int>::max(), CVShowUnused::No}};
    BudgetBuilder budget;
    EXPECT_EQ(CVReadShowUnused(budget.userDefaults()), CVShowUnused::No);
    for (const Row& row : kRows) {
        budget.userDefaults().setInteger("ShowUnusedCategories", row.preference);
        EXPECT_EQ(CVReadShowUnused(budget.userDefaults()), row.showUnused) << row.preference;
    }
}

} // namespace
