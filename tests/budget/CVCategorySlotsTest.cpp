#include "budget/CVCategorySlots.h"

#include "kit/BudgetBuilder.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace {

constexpr quint32 kLargestID = std::numeric_limits<quint32>::max();

TEST(CVCategorySlots, NumberEachDifferentIDOnce) {
    // IDs below and above the limit of the lookup by index.
    const std::array<quint32, 8> ids{7, 0, 7, kLargestID, 4095, 4096, kLargestID, 0};
    const CVCategorySlots slotsOfIDs(ids);
    EXPECT_EQ(slotsOfIDs.count(), 5U);
    EXPECT_EQ(slotsOfIDs.slotOf(7), 0U);
    EXPECT_EQ(slotsOfIDs.slotOf(0), 1U);
    EXPECT_EQ(slotsOfIDs.slotOf(kLargestID), 2U);
    EXPECT_EQ(slotsOfIDs.slotOf(4095), 3U);
    EXPECT_EQ(slotsOfIDs.slotOf(4096), 4U);
}

TEST(CVCategorySlots, HaveNoneForAnIDThatNoCategoryHas) {
    const std::array<quint32, 2> ids{7, 5000};
    const CVCategorySlots slotsOfIDs(ids);
    for (const quint32 id : {quint32(0), quint32(6), quint32(8), quint32(4999), quint32(5001), kLargestID})
        EXPECT_EQ(slotsOfIDs.slotOf(id), CVCategorySlots::kNone) << id;
    EXPECT_EQ(CVCategorySlots({}).count(), 0U);
    EXPECT_EQ(CVCategorySlots({}).slotOf(0), CVCategorySlots::kNone);
    EXPECT_EQ(CVCategorySlots({}).slotOf(kLargestID), CVCategorySlots::kNone);
}

TEST(CVCategorySlots, AreMadeFromTheIDsOfCategoriesInTheirOrder) {
    BudgetBuilder budget;
    budget.category(QStringLiteral("b"), 3).category(QStringLiteral("a"), 1).category(QStringLiteral("c"), 3);
    EXPECT_THAT(CVIDsOfCategories(budget.document().categories()), testing::ElementsAre(3, 1, 3));
}

} // namespace
