#include "budget/BudgetEquality.h"

#include "budget/CVDisplayPeriods.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <limits>

namespace {

constexpr quint32 kBudgets = 10'000;

/// Adds values that RandomBudget does not draw: IDs above those looked up by index, amounts whose sums overflow, and
/// dates with the distances of each spending pattern.
void drawExtremes(RandomBudget& budget) {
    constexpr std::array<quint32, 3> kIDs{4095, 4096, std::numeric_limits<quint32>::max()};
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr std::array kAmounts{kInfinity, -kInfinity, 1e308, -1e308, 37172579910589.14,
                                  4.5e13,    -4.6e13,    0.005, -0.0};
    const bool largeIDs = budget.oneIn(3);
    const bool extremeAmounts = budget.oneIn(3);
    const quint32 daysApart = budget.oneIn(2) ? 1 + budget.below(400) : 0;
    for (const auto& category : budget.document().categories()) {
        if (largeIDs && category->uniqueID() < kIDs.size())
            category->setUniqueID(kIDs[category->uniqueID()]);
    }
    for (const auto& transaction : budget.document().transactions()) {
        if (largeIDs && transaction->categoryID() < kIDs.size())
            transaction->setCategoryID(kIDs[transaction->categoryID()]);
        if (extremeAmounts && budget.oneIn(8))
            transaction->setAmount(kAmounts[budget.below(kAmounts.size())]);
        if (daysApart > 0 && budget.oneIn(2))
            transaction->setEffectiveDate(day(2014, 3, 1).dateByAddingYears(0, 0, daysApart * budget.below(8)));
    }
}

QBDate aDay(RandomBudget& budget) {
    return budget.date().value_or(day(2014, 3, 1));
}

/// A random range, mostly of some days or months, sometimes of many years or empty.
CVDayRange aRange(RandomBudget& budget) {
    const QBDate start = aDay(budget);
    if (budget.oneIn(6))
        return {start, aDay(budget)};
    const auto longest = budget.oneIn(2) ? 12U : 800U;
    return {start, start.dateByAddingYears(0, 0, qint64(budget.below(longest)) - 2)};
}

CVDisplayPeriods somePeriods(RandomBudget& budget) {
    const int type = static_cast<int>(budget.below(CVDisplayPeriods::kTypes));
    const int startDay = static_cast<int>(budget.below(9)) - 1;
    const int todayColumn = static_cast<int>(budget.below(5)) - 2;
    CVDisplayPeriods periods(type, aDay(budget), {startDay, todayColumn});
    for (quint32 pages = budget.below(4); pages > 0; --pages)
        budget.oneIn(2) ? periods.next() : periods.previous();
    return periods;
}

TEST(BudgetEquality, HoldsForTheGridOfRandomBudgets) {
    for (quint32 seed = 0; seed < kBudgets; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomBudget budget(seed);
        drawExtremes(budget);
        const CVDisplayPeriods periods = somePeriods(budget);
        std::vector<CVDayRange> columns;
        for (int n = 1; n <= periods.numberOfColumnsForDisplayPeriod(); ++n)
            columns.push_back(periods.column(n));
        expectGridAsPlain(budget.document(), columns, periods.displayRange());
        // These ranges occur in no display of periods.
        for (CVDayRange& column : columns)
            column = aRange(budget);
        expectGridAsPlain(budget.document(), columns, aRange(budget));
        if (HasFailure())
            break;
    }
}

TEST(BudgetEquality, HoldsForTheFiguresOfRandomBudgets) {
    for (quint32 seed = 0; seed < kBudgets; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomBudget budget(seed);
        drawExtremes(budget);
        expectFiguresAsPlain(budget.document(), aRange(budget));
        expectSelectionsAsPlain(budget.document(), aRange(budget));
        if (HasFailure())
            break;
    }
}

TEST(BudgetEquality, HoldsAfterEveryChangeOfABudget) {
    for (quint32 seed = 0; seed < kBudgets / 40; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomBudget budget(seed, 20);
        const CVDayRange range = aRange(budget);
        for (int changes = 0; changes < 40; ++changes) {
            budget.change();
            expectFiguresAsPlain(budget.document(), range);
            expectSelectionsAsPlain(budget.document(), range);
            expectGridAsPlain(budget.document(), std::array{range}, range);
        }
        if (HasFailure())
            break;
    }
}

/// A transaction as RapidCheck draws and shrinks it.
struct Drawn {
    quint32 categoryID;
    int daysOn;
    int cents;
    bool taxFlag;
};

std::ostream& operator<<(std::ostream& out, const Drawn& drawn) {
    return out << "category " << drawn.categoryID << ", " << drawn.daysOn << " days on, " << drawn.cents
               << (drawn.taxFlag ? " cents, tax" : " cents");
}

RC_GTEST_PROP(BudgetEquality, HoldsForWhateverRapidCheckDraws, ()) {
    const auto transactions = *rc::gen::container<std::vector<Drawn>>(
        rc::gen::build<Drawn>(rc::gen::set(&Drawn::categoryID, rc::gen::inRange<quint32>(0, 4)),
                              rc::gen::set(&Drawn::daysOn, rc::gen::inRange(-20, 800)), rc::gen::set(&Drawn::cents),
                              rc::gen::set(&Drawn::taxFlag)));
    const auto frequency = *rc::gen::inRange<qint64>(-1, 9);
    const auto target = *rc::gen::inRange(-1000, 1000);
    const auto startsOn = *rc::gen::inRange(-10, 100);
    const auto length = *rc::gen::inRange(-2, 900);

    const QBDate first = day(2014, 1, 1);
    BudgetBuilder budget;
    for (quint32 id = 0; id < 3; ++id)
        budget.category(QString::number(id), id, frequency, target / 100.0);
    for (const Drawn& drawn : transactions)
        budget.transaction({.date = first.dateByAddingYears(0, 0, drawn.daysOn),
                            .amount = drawn.cents / 100.0,
                            .categoryID = drawn.categoryID,
                            .taxFlag = drawn.taxFlag});
    const QBDate start = first.dateByAddingYears(0, 0, startsOn);
    const CVDayRange range{start, start.dateByAddingYears(0, 0, length - 1)};
    // The failures are caught: a failure of the test itself would be final, and RapidCheck could not look for a smaller
    // case.
    testing::TestPartResultArray failures;
    {
        using Reporter = testing::ScopedFakeTestPartResultReporter;
        const Reporter collected(Reporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        expectFiguresAsPlain(budget.document(), range);
        expectGridAsPlain(budget.document(), std::array{range}, range);
    }
    if (failures.size() > 0)
        RC_FAIL(failures.GetTestPartResult(0).message());
}

} // namespace
