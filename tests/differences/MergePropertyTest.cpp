#include "MergedRecordsFixture.h"
#include "PlainMerge.h"
#include "ReadInto.h"
#include "ThreeStates.h"
#include "model/CVDetachedDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>

namespace {

TEST(CVMergeBudgetsProperty, GivesWhatThePlainDefinitionGives) {
    std::array<int, 3> moved{};
    for (quint32 seed = 0; seed < 5000; ++seed) {
        ThreeStates states(seed);
        const PlainBudget common(states.common.document());
        const PlainBudget ours(states.ours.document());
        const PlainBudget theirs(states.theirs.document());
        const auto merged = states.merged();
        ASSERT_EQ(plainResult(**merged.budget), plainMerge(states.isKnown ? &common : nullptr, ours, theirs))
            << "seed " << seed;
        moved[0] += static_cast<int>(merged.transactions.size());
        moved[1] += static_cast<int>(merged.categories.size());
        moved[2] += static_cast<int>(merged.sets.size());
    }
    EXPECT_GT(moved[0], 300) << "lines are changed on both sides";
    EXPECT_GT(moved[1], 100);
    EXPECT_GT(moved[2], 50);
}

TEST(CVMergeBudgetsProperty, IDsStayOursAndTheCounterIsTheGreatestOne) {
    for (quint32 seed = 0; seed < 400; ++seed) {
        ThreeStates states(seed);
        const auto merged = states.merged();
        const CVDocument& budget = **merged.budget;
        quint32 highest = std::max(states.ours.document().uniqueID(), states.theirs.document().uniqueID());
        std::set<quint32> sets;
        std::set<quint32> categories;
        for (const auto& set : budget.transactionSets())
            ASSERT_TRUE(sets.insert(set->uniqueID()).second) << "seed " << seed;
        for (const auto& category : budget.categories())
            ASSERT_TRUE(categories.insert(category->uniqueID()).second) << "seed " << seed;
        for (const auto& used : {sets, categories})
            highest = used.empty() ? highest : std::max(highest, *used.rbegin());
        for (const auto& transaction : budget.transactions())
            highest = std::max({highest, transaction->transactionSetID(), transaction->categoryID()});
        ASSERT_EQ(budget.uniqueID(), highest) << "seed " << seed;
    }
}

TEST(CVMergeBudgetsProperty, WithoutChangesOnOneSideItIsTheOther) {
    for (quint32 seed = 0; seed < 400; ++seed) {
        ThreeStates states(seed);
        const CVDocument& common = states.common.document();
        const auto ours = CVMergeBudgets(&common, states.ours.document(), common);
        EXPECT_EQ(plainResult(**ours.budget).lines, plainResult(states.ours.document()).lines) << "seed " << seed;
        const auto theirs = CVMergeBudgets(&common, common, states.theirs.document());
        EXPECT_EQ(plainResult(**theirs.budget).lines.size(), plainResult(states.theirs.document()).lines.size())
            << "seed " << seed;
        for (const auto& merged : {ours, theirs})
            EXPECT_TRUE(merged.transactions.empty() && merged.categories.empty() && merged.sets.empty())
                << "seed " << seed;
    }
}

/// What lines say but for their set and category, whose names may have changed.
std::multiset<QString> sayings(const CVDocument& document) {
    std::multiset<QString> texts;
    for (const QString& line : plainResult(document).lines)
        texts.insert(line.section('|', 1));
    return texts;
}

TEST(CVMergeBudgetsProperty, NothingIsLostWithoutACommonState) {
    for (quint32 seed = 0; seed < 400; ++seed) {
        ThreeStates states(seed);
        const auto merged = CVMergeBudgets(nullptr, states.ours.document(), states.theirs.document());
        const auto here = sayings(states.ours.document());
        const auto there = sayings(states.theirs.document());
        const auto all = sayings(**merged.budget);
        for (const auto& side : {here, there}) {
            for (const QString& text : side)
                ASSERT_GE(all.count(text), std::max(here.count(text), there.count(text))) << "seed " << seed;
        }
        for (const auto& category : states.ours.document().categories())
            ASSERT_TRUE((*merged.budget)->getCategoryByUniqueID(category->uniqueID())) << "seed " << seed;
    }
}

TEST(CVBringInProperty, AllDifferencesGiveTheMergedBudgetAndNothingIsLeft) {
    int broughtIn = 0;
    for (quint32 seed = 0; seed < 1000; ++seed) {
        ThreeStates states(seed);
        BudgetBuilder present;
        readInto(present, states.ours.document());
        const auto merged = states.merged();
        const int all = bringAllIn(present.document(), states.ours.document(), merged);
        broughtIn += all;
        ASSERT_EQ(plainResult(present.document()), plainResult(**merged.budget)) << "seed " << seed;
        ASSERT_EQ(present.document().currentTransactionSet(), (*merged.budget)->currentTransactionSet())
            << "seed " << seed;
        const auto rest = CVMergeRest(states.ours.document(), present.document(), **merged.budget);
        ASSERT_TRUE(CVBudgetDifferences::between(**rest.budget, present.document(), &present.document()).isEmpty())
            << "seed " << seed;
    }
    EXPECT_GT(broughtIn, 3000);
}

/// Some of the differences, others for each seed.
CVBudgetDifferences someOf(CVBudgetDifferences differences, quint32 seed) {
    std::mt19937 engine(seed);
    const auto leaveOut = [&engine](auto& lines) {
        std::erase_if(lines, [&engine](auto&) { return engine() % 2 == 0; });
    };
    leaveOut(differences.sets);
    leaveOut(differences.categories);
    leaveOut(differences.transactions);
    return differences;
}

TEST(CVBringInProperty, SomeDifferencesAndThenTheRestGiveTheMergedBudget) {
    for (quint32 seed = 0; seed < 1000; ++seed) {
        ThreeStates states(seed);
        BudgetBuilder present;
        readInto(present, states.ours.document());
        const CVDocument& ours = states.ours.document();
        const auto merged = states.merged();
        (void)CVBringIn(present.document(), **merged.budget, ours,
                        someOf(CVBudgetDifferences::between(**merged.budget, ours, &ours), seed));
        BudgetBuilder halfway;
        readInto(halfway, present.document());
        const auto rest = CVMergeRest(ours, halfway.document(), **merged.budget);
        (void)bringAllIn(present.document(), halfway.document(), rest);
        ASSERT_EQ(plainResult(present.document()).lines, plainResult(**merged.budget).lines) << "seed " << seed;
    }
}

} // namespace
