#include "differences/CVMergeBudgets.h"

#include "PlainMerge.h"
#include "differences/CVBringIn.h"
#include "differences/CVBudgetDifferences.h"
#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/RandomBudget.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVDocumentXML.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <random>
#include <set>

namespace {

using MergeEntry = BudgetBuilder::Entry;

void readInto(BudgetBuilder& read, const CVDocument& document) {
    CVDocumentParserDelegate parser(&read.document());
    ASSERT_TRUE(parser.prepareFromData(CVDocumentXMLRepresentation(document).joined().leftJustified(64)) &&
                parser.parseDocumentData());
}

/// Changes as two people make them who keep the same budget: few contents, so that equal lines are many, and each side
/// issues the same IDs.
class Hand final {
public:
    Hand(BudgetBuilder& budget, quint32 seed) : mBudget(budget), mEngine(seed) {}

    void change() {
        CVDocument& document = mBudget.document();
        switch (below(12)) {
        case 0:
        case 1:
        case 2:
            return add();
        case 3:
        case 4:
            return remove();
        case 5:
        case 6:
            return edit();
        case 7:
            if (document.countOfCategories() > 0)
                category()->setCategoryName(word());
            return document.sortCategories();
        case 8:
            if (document.countOfCategories() > 0)
                category()->setExpenseTarget(below(3) * 100);
            return;
        case 9:
            (void)document.insertCategoryName(word());
            return;
        case 10:
            if (document.countOfCategories() > 0)
                document.removeCategory(category());
            return;
        default:
            return changeSets();
        }
    }

    void add() {
        mBudget.transaction({.date = day(2014, 3, 1 + static_cast<int>(below(2))),
                             .amount = 10.0 + below(2),
                             .payTo = below(2) == 0 ? "Market" : "Baker",
                             .categoryID = categoryID(),
                             .setID = setID(),
                             .taxFlag = below(6) == 0});
    }

    void addSet() {
        CVDocument& document = mBudget.document();
        mBudget.set(word(), document.getUniqueTransactionSetID());
    }

private:
    [[nodiscard]] quint32 below(quint32 bound) { return static_cast<quint32>(mEngine() % bound); }
    [[nodiscard]] QString word() {
        constexpr std::array<const char*, 5> kNames{"Food", "Fuel", "Rent", "Toys", "Cash"};
        return kNames[below(kNames.size())];
    }
    [[nodiscard]] std::shared_ptr<CVCategory> category() {
        const auto& categories = mBudget.document().categories();
        return categories[below(static_cast<quint32>(categories.size()))];
    }
    [[nodiscard]] quint32 categoryID() {
        return mBudget.document().countOfCategories() == 0 || below(8) == 0 ? 0 : category()->uniqueID();
    }
    [[nodiscard]] quint32 setID() {
        const auto& sets = mBudget.document().transactionSets();
        return sets.empty() ? 0 : sets[below(static_cast<quint32>(sets.size()))]->uniqueID();
    }
    void remove() {
        const auto& transactions = mBudget.document().transactions();
        if (!transactions.empty())
            mBudget.document().removeTransaction(
                std::shared_ptr(transactions[below(static_cast<quint32>(transactions.size()))]));
    }
    void edit() {
        const auto& transactions = mBudget.document().transactions();
        if (transactions.empty())
            return;
        CVTransaction& transaction = *transactions[below(static_cast<quint32>(transactions.size()))];
        if (below(2) == 0)
            transaction.setAmount(10.0 + below(4));
        else
            transaction.setCategoryID(categoryID());
    }
    void changeSets() {
        CVDocument& document = mBudget.document();
        auto& sets = document.transactionSets();
        switch (below(3)) {
        case 0:
            return addSet();
        case 1:
            if (!sets.empty())
                sets[below(static_cast<quint32>(sets.size()))]->setTransactionSetName(word());
            return;
        default:
            if (sets.size() > 1) {
                const auto gone = sets[below(static_cast<quint32>(sets.size()))];
                document.removeTransactionsForSet(gone->uniqueID());
                std::erase(sets, gone);
            }
        }
    }

    BudgetBuilder& mBudget;
    std::mt19937 mEngine;
};

/// A common state and two that come from it, as their files hold them; every fifth common state is unknown.
struct ThreeStates {
    explicit ThreeStates(quint32 seed) : isKnown(seed % 5 != 4) {
        if (seed % 2 == 0)
            makeByHands(seed);
        else
            makeOfAnything(seed);
    }

    [[nodiscard]] const CVDocument* known() { return isKnown ? &common.document() : nullptr; }
    [[nodiscard]] CVMergedBudget merged() { return CVMergeBudgets(known(), ours.document(), theirs.document()); }

    bool isKnown;
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;

private:
    void makeByHands(quint32 seed) {
        common.category("Food", 1).category("Fuel", 2).category("Rent", 3).lastID(3);
        Hand first(common, seed);
        for (quint32 sets = seed % 3; sets > 0; --sets)
            first.addSet();
        common.currentSet(seed % 4);
        for (int i = 0; i < 12; ++i)
            first.add();
        readInto(ours, common.document());
        readInto(theirs, common.document());
        Hand we(ours, seed + 100'000);
        for (quint32 changes = seed / 7 % 12; changes > 0; --changes)
            we.change();
        Hand they(theirs, seed + 200'000);
        for (quint32 changes = seed / 11 % 12; changes > 0; --changes)
            they.change();
    }

    /// What files may contain, with changes of the same kind; now and then theirs is of another origin.
    void makeOfAnything(quint32 seed) {
        RandomBudget first(seed);
        readInto(common, first.document());
        RandomBudget we(seed);
        for (quint32 changes = seed % 20; changes > 0; --changes)
            we.change();
        readInto(ours, we.document());
        RandomBudget they(seed % 17 == 0 ? seed + 10'000 : seed);
        (void)they.below(2);
        for (quint32 changes = seed % 23; changes > 0; --changes)
            they.change();
        readInto(theirs, they.document());
    }
};

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

/// Brings all differences in, as the window does.
int bringAllIn(CVDocument& present, const CVDocument& ours, const CVMergedBudget& merged) {
    return CVBringIn(present, **merged.budget, ours, CVBudgetDifferences::between(**merged.budget, ours, &ours));
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

void usualBudget(BudgetBuilder& budget) {
    budget.set("Checking", 1).set("Cash", 2).currentSet(1).lastID(20);
    budget.category("Food", 3, CVExpenseFrequency::kMonthly, 200).category("Fuel", 4).category("Rent", 5);
}

MergeEntry purchaseOf(double amount, const QString& payTo = "Market", const QString& category = "Food") {
    return {.date = day(2014, 3, 7), .amount = amount, .payTo = payTo, .category = category, .set = "Checking"};
}

struct CountsRow {
    int common;
    int ours;
    int theirs;
    int merged;
};

void PrintTo(const CountsRow& row, std::ostream* out) {
    *out << "b " << row.common << ", o " << row.ours << ", t " << row.theirs << " gives " << row.merged;
}

class MergedCounts : public testing::TestWithParam<CountsRow> {};

TEST_P(MergedCounts, OfOneContent) {
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;
    const std::array<std::pair<BudgetBuilder*, int>, 3> sides{
        {{&common, GetParam().common}, {&ours, GetParam().ours}, {&theirs, GetParam().theirs}}};
    for (const auto& [budget, count] : sides) {
        usualBudget(*budget);
        for (int i = 0; i < count; ++i)
            budget->transaction(purchaseOf(30));
    }
    const auto merged = CVMergeBudgets(&common.document(), ours.document(), theirs.document());
    EXPECT_EQ((*merged.budget)->transactions().size(), static_cast<std::size_t>(GetParam().merged));
}

INSTANTIATE_TEST_SUITE_P(Rows, MergedCounts,
                         testing::Values(CountsRow{0, 0, 1, 1}, CountsRow{0, 1, 1, 1}, CountsRow{0, 1, 2, 2},
                                         CountsRow{1, 2, 4, 4}, CountsRow{2, 1, 1, 1}, CountsRow{3, 2, 0, 0},
                                         CountsRow{1, 0, 0, 0}, CountsRow{1, 1, 0, 0}, CountsRow{2, 3, 1, 2},
                                         CountsRow{1, 0, 3, 2}, CountsRow{1, 1, 1, 1}));

TEST(CVMergeBudgetsTest, ALineThatWasChangedDifferentlyOnBothSidesStaysTwiceAndIsNamed) {
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;
    for (const auto& [budget, amount] : {std::pair(&common, 30.0), std::pair(&ours, 31.0), std::pair(&theirs, 32.0)}) {
        usualBudget(*budget);
        budget->transaction(purchaseOf(amount)).transaction(purchaseOf(5, "Baker"));
    }
    const auto merged = CVMergeBudgets(&common.document(), ours.document(), theirs.document());
    EXPECT_EQ(plainResult(**merged.budget).lines.filter("Market").size(), 2);
    ASSERT_EQ(merged.transactions.size(), 1U);
    EXPECT_EQ(merged.transactions[0].ours->amount(), 31);
    EXPECT_EQ(merged.transactions[0].theirs->amount(), 32);
    EXPECT_EQ(merged.transactions[0].theirs->document(), &**merged.budget);
}

TEST(CVMergeBudgetsTest, ALineThatWasChangedAlikeOnBothSidesStandsOnceAndIsNotNamed) {
    BudgetBuilder common;
    BudgetBuilder ours;
    BudgetBuilder theirs;
    for (const auto& [budget, amount] : {std::pair(&common, 30.0), std::pair(&ours, 31.0), std::pair(&theirs, 31.0)}) {
        usualBudget(*budget);
        budget->transaction(purchaseOf(amount));
    }
    const auto merged = CVMergeBudgets(&common.document(), ours.document(), theirs.document());
    EXPECT_EQ((*merged.budget)->transactions().size(), 1U);
    EXPECT_TRUE(merged.transactions.empty());
}

/// A usual budget on all sides, which a test then changes.
class MergedRecordsTest : public testing::Test {
protected:
    void SetUp() override {
        for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
            usualBudget(*budget);
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

TEST_F(MergedRecordsTest, NameAndPlanThatOnlyOneSideHasChangedCount) {
    mOurs.categoryNamed("Food")->setCategoryName("Groceries");
    mTheirs.categoryNamed("Food")->setExpenseTarget(250);
    mTheirs.setNamed("Cash")->setTransactionSetName("Purse");
    merge();
    EXPECT_EQ(categories(), (QStringList{"4 Fuel 0", "3 Groceries 250", "5 Rent 0"}));
    EXPECT_EQ(sets(), (QStringList{"1 Checking", "2 Purse"}));
    EXPECT_TRUE(mMerged.categories.empty());
}

TEST_F(MergedRecordsTest, WhatBothHaveChangedDifferentlyStaysOursAndIsNamed) {
    mOurs.categoryNamed("Food")->setExpenseTarget(300);
    mTheirs.categoryNamed("Food")->setExpenseTarget(250);
    mOurs.setNamed("Cash")->setTransactionSetName("Wallet");
    mTheirs.setNamed("Cash")->setTransactionSetName("Purse");
    merge();
    EXPECT_EQ(categories(), (QStringList{"3 Food 300", "4 Fuel 0", "5 Rent 0"}));
    ASSERT_EQ(mMerged.categories.size(), 1U);
    EXPECT_EQ(mMerged.categories[0].theirs->expenseTarget(), 250);
    ASSERT_EQ(mMerged.sets.size(), 1U);
    EXPECT_EQ(mMerged.sets[0].ours->transactionSetName(), "Wallet");
    EXPECT_EQ(mMerged.sets[0].theirs->transactionSetName(), "Purse");
}

TEST_F(MergedRecordsTest, WhatTheyRemovedGoesUnlessWeUseOrHaveChangedIt) {
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Food"));
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Fuel"));
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Rent"));
    mTheirs.category("Other", 9);
    mOurs.categoryNamed("Food")->setExpenseTarget(1);
    mOurs.transaction(purchaseOf(7, "Station", "Fuel"));
    // Half of the categories of the common state are there, so that it counts as theirs.
    for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
        budget->category("A", 11).category("B", 12).category("C", 13);
    merge();
    EXPECT_EQ(categories(), (QStringList{"11 A 0", "12 B 0", "13 C 0", "3 Food 1", "4 Fuel 0", "9 Other 0"}));
}

TEST_F(MergedRecordsTest, ASetThatTheyRemovedGoesWithItsLinesButNotTheShownOne) {
    for (BudgetBuilder* const budget : {&mCommon, &mOurs})
        budget->transaction({.date = day(2014, 3, 7), .payTo = "Kiosk", .category = "Food", .set = "Cash"});
    mTheirs.document().transactionSets().clear();
    mTheirs.set("New", 30);
    merge();
    EXPECT_EQ(sets(), (QStringList{"1 Checking", "30 New"}));
    EXPECT_TRUE((*mMerged.budget)->transactions().empty());
}

TEST_F(MergedRecordsTest, ANewRecordOfTheirsWhoseIDIsTakenGetsAnotherAndItsLinesFollow) {
    mOurs.category("Toys", 21).lastID(21).transaction(purchaseOf(1, "Shop", "Toys"));
    mTheirs.category("Garden", 21).lastID(21).transaction(purchaseOf(2, "Nursery", "Garden"));
    merge();
    EXPECT_EQ(categories(),
              (QStringList{"3 Food 200", "4 Fuel 0", QString::number((*mMerged.budget)->uniqueID()) + " Garden 0",
                           "5 Rent 0", "21 Toys 0"}));
    const QStringList lines = plainResult(**mMerged.budget).lines;
    EXPECT_EQ(lines.filter("Checking/Garden|").filter("Nursery").size(), 1);
    EXPECT_EQ(lines.filter("Checking/Toys|").filter("Shop").size(), 1);
}

TEST_F(MergedRecordsTest, WhatBothHaveAddedUnderOneNameIsOne) {
    mOurs.category("Toys", 21).lastID(21).transaction(purchaseOf(1, "Shop", "Toys"));
    mTheirs.category("Garden", 21).category("Toys", 22).lastID(22).transaction(purchaseOf(1, "Shop", "Toys"));
    merge();
    EXPECT_EQ(plainResult(**mMerged.budget).lines.size(), 1);
    EXPECT_EQ(categories().filter("Toys"), QStringList{"21 Toys 0"});
}

TEST_F(MergedRecordsTest, OurTransactionsWithoutACategoryDoNotFallIntoANewOneOfTheirs) {
    MergeEntry without = purchaseOf(1, "Shop", {});
    without.categoryID = 21;
    for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
        budget->transaction(without);
    mTheirs.document().transactions()[0]->setCategoryID(99);
    mTheirs.category("Garden", 21).lastID(99);
    merge();
    EXPECT_EQ(plainResult(**mMerged.budget).lines.filter("(none)").size(), 1);
    EXPECT_EQ((*mMerged.budget)->transactions()[0]->categoryID(), 21U) << "ours stays as it is";
}

/// Bringing lines in.
class CVBringInTest : public MergedRecordsTest {
protected:
    void SetUp() override {
        MergedRecordsTest::SetUp();
        for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
            budget->transaction(purchaseOf(30)).transaction(purchaseOf(5, "Baker"));
    }
    void mergeAndOpen() {
        merge();
        readInto(mPresent, mOurs.document());
        mPresent.document().setSaver(&mSaver);
        mDifferences = CVBudgetDifferences::between(**mMerged.budget, mOurs.document(), &mOurs.document());
    }
    int bringIn(const CVBudgetDifferences& chosen) {
        return CVBringIn(mPresent.document(), **mMerged.budget, mOurs.document(), chosen);
    }
    [[nodiscard]] QStringList lines() {
        QStringList texts;
        for (const auto& transaction : mPresent.document().transactions())
            texts.append(transaction->payTo() + ' ' + QString::number(transaction->amount()));
        texts.sort();
        return texts;
    }

    BudgetBuilder mPresent;
    CountingSaver mSaver;
    CVBudgetDifferences mDifferences{{{}, {}, {}}, {{}, {}, {}}, {}, {}, {}, {}};
};

TEST_F(CVBringInTest, LinesAreAddedChangedAndRemovedAsOneChangeWithAVersionBefore) {
    mTheirs.document().removeTransaction(std::shared_ptr(mTheirs.document().transactions()[1]));
    mTheirs.document().transactions()[0]->setAmount(31);
    mTheirs.transaction(purchaseOf(9, "Kiosk")).lastID(40);
    mergeAndOpen();
    EXPECT_EQ(bringIn(mDifferences), 3);
    EXPECT_EQ(lines(), (QStringList{"Kiosk 9", "Market 31"}));
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mPresent.document().takeAskedVersion(), CVVersionReason::TakingOver);
    EXPECT_EQ(mPresent.document().uniqueID(), 40U);
}

TEST_F(CVBringInTest, BringingInTwiceChangesNothingTheSecondTime) {
    mTheirs.document().removeTransaction(std::shared_ptr(mTheirs.document().transactions()[1]));
    mTheirs.transaction(purchaseOf(9, "Kiosk"));
    mergeAndOpen();
    EXPECT_EQ(bringIn(mDifferences), 2);
    EXPECT_EQ(bringIn(mDifferences), 0);
    EXPECT_EQ(lines(), (QStringList{"Kiosk 9", "Market 30"}));
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(CVBringInTest, ARemovalThatWasTakenIsNotFoundAgain) {
    // We have added a second one of the same, they have removed the first.
    mOurs.transaction(purchaseOf(5, "Baker"));
    mTheirs.document().removeTransaction(std::shared_ptr(mTheirs.document().transactions()[1]));
    mergeAndOpen();
    EXPECT_EQ(bringIn(mDifferences), 1);
    EXPECT_EQ(lines(), (QStringList{"Baker 5", "Market 30"}));
    const auto rest = CVMergeRest(mOurs.document(), mPresent.document(), **mMerged.budget);
    EXPECT_EQ((*rest.budget)->transactions().size(), 2U);
}

TEST_F(CVBringInTest, ARecordThatIsStillUsedAndTheShownSetStay) {
    for (BudgetBuilder* const budget : {&mCommon, &mOurs, &mTheirs})
        budget->category("Spare", 6).category("Idle", 7);
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Spare"));
    mTheirs.document().removeCategory(mTheirs.categoryNamed("Idle"));
    std::erase(mTheirs.document().transactionSets(), mTheirs.setNamed("Cash"));
    mergeAndOpen();
    ASSERT_EQ(mDifferences.categories.size() + mDifferences.sets.size(), 3U);
    // Both are in use since the lines were shown.
    mPresent.transaction(purchaseOf(1, "Shop", "Spare"));
    mPresent.document().setCurrentTransactionSet(2);
    EXPECT_EQ(bringIn(mDifferences), 1);
    EXPECT_TRUE(mPresent.document().doesCategoryNameExist("Spare"));
    EXPECT_FALSE(mPresent.document().doesCategoryNameExist("Idle"));
    EXPECT_EQ(mPresent.document().transactionSets().size(), 2U);
}

TEST_F(CVBringInTest, ALineOfARenamedCategoryJoinsItUnderOurName) {
    mTheirs.categoryNamed("Food")->setCategoryName("Groceries");
    mTheirs.transaction(purchaseOf(9, "Kiosk", "Groceries"));
    mergeAndOpen();
    mDifferences.categories.clear();
    EXPECT_EQ(bringIn(mDifferences), 1);
    EXPECT_EQ(plainResult(mPresent.document()).lines.filter("Kiosk").filter("Checking/Food|").size(), 1);
    EXPECT_EQ(mPresent.document().countOfCategories(), 3U);
}

TEST_F(CVBringInTest, AfterOursWasBegunAnewTheSameIDsMeanOtherCategories) {
    mTheirs.categoryNamed("Food")->setExpenseTarget(250);
    mergeAndOpen();
    BudgetBuilder anew;
    anew.category("Auto", 3).category("Books", 4).category("Clothes", 5).lastID(5);
    const auto rest = CVMergeRest(mOurs.document(), anew.document(), **mMerged.budget);
    EXPECT_EQ((*rest.budget)->getCategoryByUniqueID(3)->categoryName(), "Auto");
    EXPECT_EQ((*rest.budget)->getCategoryByUniqueID(3)->expenseTarget(), 0) << "the plan was that for food";
}

TEST_F(CVBringInTest, TheFirstSetsOfTheOtherSideKeepOurLinesShown) {
    BudgetBuilder common;
    common.category("Food", 3).transaction({.payTo = "Kiosk", .categoryID = 3});
    BudgetBuilder theirs;
    theirs.set("Initial Transaction Set", 0).set("Giro", 5).category("Food", 3);
    theirs.transaction({.payTo = "Kiosk", .categoryID = 3}).transaction({.payTo = "Bank", .categoryID = 3, .setID = 5});
    const auto merged = CVMergeBudgets(&common.document(), common.document(), theirs.document());
    BudgetBuilder present;
    readInto(present, common.document());
    EXPECT_EQ(bringAllIn(present.document(), common.document(), merged), 3);
    EXPECT_EQ(plainResult(present.document()).sets, (QStringList{"Giro", "Initial Transaction Set"}));
    EXPECT_EQ(present.document().shownTransactionSet(), 0U);
}

} // namespace
