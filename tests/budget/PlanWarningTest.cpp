#include "base/QBMoney.h"
#include "budget/ArithmeticText.h"
#include "budget/CVCategoryAverages.h"
#include "budget/CVReportFigures.h"
#include "kit/BudgetBuilder.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace {

struct WarningRow {
    qint64 frequency;
    const char* ofAMonth;
    bool rounded;
};

constexpr std::array kWarnings{WarningRow{CVExpenseFrequency::kWeekly, "x12 /52", true},
                               WarningRow{CVExpenseFrequency::kBiWeekly, "x12 /26", true},
                               WarningRow{CVExpenseFrequency::kSemiMonthly, "x0.5", true},
                               WarningRow{CVExpenseFrequency::kMonthly, "-", false},
                               WarningRow{CVExpenseFrequency::kBiMonthly, "x2", false},
                               WarningRow{CVExpenseFrequency::kQuarterly, "x3", false},
                               WarningRow{CVExpenseFrequency::kSemiAnnually, "x6", false},
                               WarningRow{CVExpenseFrequency::kAnnually, "x12", false}};

bool warns(qint64 frequency, double monthly, double target) {
    CVCategory category;
    category.setExpenseFrequency(frequency);
    category.setMonthly(monthly);
    category.setExpenseTarget(target);
    return targetIsBelowMonthlyAverage(category);
}

TEST(PlanWarning, IsGivenFromTheFirstCentThatTheConvertedMonthlyAverageExceedsTheTarget) {
    for (const WarningRow& row : kWarnings) {
        for (const double monthly : {100.0, 33.33, 0.05, 99999.99, -7.77, 0.0}) {
            SCOPED_TRACE(testing::Message() << "frequency " << row.frequency << ", monthly " << monthly);
            const double exact = carriedOut(row.ofAMonth, monthly);
            const double comparison = row.rounded ? RoundDoubleToTwoPlaces(exact) : exact;
            EXPECT_FALSE(warns(row.frequency, monthly, comparison));
            EXPECT_FALSE(warns(row.frequency, monthly, comparison + 0.01));
            EXPECT_TRUE(warns(row.frequency, monthly, comparison - 0.01));
            EXPECT_TRUE(warns(row.frequency, monthly, comparison - 1e-9));
        }
    }
}

TEST(PlanWarning, ComparesWithCentsWhereTheFrequencyIsShorterThanAMonth) {
    // 100 a month are 23.0769... a week and 46.1538... in two weeks; 100.01 a month are 50.005 in half a month.
    EXPECT_TRUE(warns(CVExpenseFrequency::kWeekly, 100, 23.079));
    EXPECT_FALSE(warns(CVExpenseFrequency::kBiWeekly, 100, 46.151));
    EXPECT_TRUE(warns(CVExpenseFrequency::kSemiMonthly, 100.01, 50.006));
}

TEST(PlanWarning, OfAnUnknownFrequencyIsGivenForANegativeTarget) {
    for (const qint64 code : {CVExpenseFrequency::kUnknown, qint64(8), qint64(1) << 40}) {
        EXPECT_FALSE(warns(code, 100, 0)) << code;
        EXPECT_TRUE(warns(code, 100, -0.01)) << code;
    }
}

TEST(PlanWarning, IsNotGivenForWhatIsNoNumber) {
    constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    for (const WarningRow& row : kWarnings) {
        EXPECT_FALSE(warns(row.frequency, kNotANumber, 1));
        EXPECT_FALSE(warns(row.frequency, 1, kNotANumber));
        EXPECT_FALSE(warns(row.frequency, kEndless, kEndless));
        EXPECT_TRUE(warns(row.frequency, kEndless, 1));
    }
}

TEST(PlanWarning, CanDisagreeWithTheDifference) {
    BudgetBuilder budget;
    budget.category(QStringLiteral("Food"), 1, CVExpenseFrequency::kQuarterly, 50)
        .transaction({.date = day(2014, 1, 1), .amount = 20, .categoryID = 1})
        .transaction({.date = day(2014, 2, 28), .amount = 20, .categoryID = 1});
    const CVCategory& food = *budget.categoryNamed(QStringLiteral("Food"));
    // Two months contain no whole quarter, so the difference is the whole target; 20 a month are 60 a quarter.
    const CVReportFigures twoMonths(budget.document().transactions(), budget.document().categories(),
                                    {day(2014, 1, 1), day(2014, 2, 28)});
    EXPECT_EQ(twoMonths.difference(food), 50);
    EXPECT_TRUE(targetIsBelowMonthlyAverage(food));

    // Five months contain one whole quarter, so the difference is negative; 40 in five months are 24 a quarter.
    budget.categoryNamed(QStringLiteral("Food"))->setExpenseTarget(30);
    const CVReportFigures fiveMonths(budget.document().transactions(), budget.document().categories(),
                                     {day(2014, 1, 1), day(2014, 5, 31)});
    EXPECT_EQ(fiveMonths.difference(food), -10);
    EXPECT_FALSE(targetIsBelowMonthlyAverage(food));
}

} // namespace
