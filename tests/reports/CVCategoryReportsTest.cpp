#include "base/QBMoney.h"
#include "budget/CVCategoryAverages.h"
#include "format/QBMoneyFormatter.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "kit/RandomBudget.h"
#include "reports/CVReport.h"

#include <gtest/gtest.h>

namespace {

/// The range is 1 January to 28 February 2014, which contains 8 whole weeks.
struct CategoryReports : testing::Test {
    [[nodiscard]] const CVCategories& categories() { return budget.document().categories(); }
    [[nodiscard]] const CVTransactions& transactions() { return budget.document().transactions(); }

    void computeAverages() {
        for (const auto& category : categories())
            computeAveragesForArray(*category, transactions(), start, end);
    }

    const QBDate start = day(2014, 1, 1);
    const QBDate end = day(2014, 2, 28);
    BudgetBuilder budget;
};

TEST_F(CategoryReports, OfAveragesShowWhatWasLastComputed) {
    budget.category("Food", 1).category("Car\n", 2);
    CVCategory& food = *budget.categoryNamed("Food");
    food.setBillFrequency("Bi-Weekly");
    food.setNumberOfTransactions(1234);
    food.setTotal(1000.5);
    food.setMonthly(10.25);
    food.setBiWeekly(-5);
    food.setWeekly(2.5);
    const auto report = CVReport::initWithCatgoryAverages(categories(), start, end);
    EXPECT_EQ(report->title(), "Category Averages Report for: 1/1/14 to 2/28/14");
    EXPECT_EQ(report->labels(),
              (QStringList{"Category", "Spending Pattern", "# of Trans", "Total", "Monthly", "Bi-Weekly", "Weekly"}));
    ASSERT_EQ(report->lineCount(), 2U);
    EXPECT_EQ(report->line(0).texts,
              (QStringList{"Food", "Bi-Weekly", "1234", "$1,000.50", "$10.25", "-$5.00", "$2.50"}));
    EXPECT_EQ(report->line(1).texts[0], "Car ");
    food.setTotal(2);
    EXPECT_EQ(report->line(0).texts[3], "$1,000.50") << "a report shows the figures of the moment it was made";
}

TEST_F(CategoryReports, OfThePlanCompareTargetAndAverage) {
    budget.category("Food", 1, CVExpenseFrequency::kWeekly, 30.128)
        .transaction({.date = day(2014, 1, 1), .amount = 100, .category = "Food"})
        .transaction({.date = day(2014, 2, 28), .amount = 60, .category = "Food"})
        .transaction({.date = day(2014, 3, 1), .amount = 1000, .category = "Food"});
    const auto report = CVReport::initWithCatgoryTotals(categories(), transactions(), start, end);
    EXPECT_EQ(report->title(), "Plan vs Actual Report for: 1/1/14 to 2/28/14");
    EXPECT_EQ(report->labels(), (QStringList{"Category", "Expense Frequency", "Target Per Frequency",
                                             "Average Per Frequency", "Difference"}));
    EXPECT_EQ(report->line(0).texts, (QStringList{"Food", "Weekly", "$30.13", "$20.00", "$10.13"}));
}

TEST_F(CategoryReports, OfThePlanNameTheFrequencies) {
    const std::vector<std::pair<qint64, QString>> rows{
        {0, "Weekly"},    {1, "Weekly"},        {2, "Semi-Monthly"}, {3, "Monthly"}, {4, "2 Months"},
        {5, "Quarterly"}, {6, "Semi-Annually"}, {7, "Annually"},     {8, ""},        {9, ""},
        {-1, ""}};
    for (const auto& [code, label] : rows) {
        BudgetBuilder one;
        one.category("Food", 1, code);
        const auto report = CVReport::initWithCatgoryTotals(one.document().categories(), {}, start, end);
        EXPECT_EQ(report->line(0).texts[1], label) << code;
    }
}

TEST_F(CategoryReports, OfPercentsShareTheSpendingOfTheRange) {
    budget.category("Food", 1)
        .category("Car", 2)
        .transaction({.date = start, .amount = 10, .category = "Food"})
        .transaction({.date = end, .amount = 20, .category = "Car"})
        .transaction({.date = day(2013, 12, 31), .amount = 999, .category = "Car"})
        .transaction({.amount = 999, .category = "Car"});
    computeAverages();
    const auto report = CVReport::initWithCatgoryPercents(categories(), transactions(), start, end);
    EXPECT_EQ(report->title(), "Percent Report for: 1/1/14 to 2/28/14");
    EXPECT_EQ(report->labels(), (QStringList{"Category", "Total Spent", "Percent of total spent"}));
    EXPECT_EQ(report->line(0).texts, (QStringList{"Food", "$10.00", "33.33%"}));
    EXPECT_EQ(report->line(1).texts, (QStringList{"Car", "$20.00", "66.67%"}));
}

TEST_F(CategoryReports, OfPercentsDivideByOneWhereNothingWasSpent) {
    budget.category("Food", 1);
    budget.categoryNamed("Food")->setTotal(12.34);
    const std::vector<std::pair<double, QString>> rows{
        {0, "1234.00%"}, {0.0099, "1234.00%"}, {-50, "1234.00%"}, {0.01, "123400.00%"}};
    for (const auto& [spent, percent] : rows) {
        const auto report = CVReport::initWithCatgoryPercents(
            categories(), {makeTransaction({.date = start, .amount = spent})}, start, end);
        EXPECT_EQ(report->line(0).texts[2], percent) << spent;
    }
}

TEST_F(CategoryReports, OfTaxCountAndAddTheTaxedOnes) {
    budget.category("Food", 1)
        .category("Car", 2)
        .transaction({.date = start, .amount = 10, .category = "Food", .taxFlag = true})
        .transaction({.date = end, .amount = 1000.5, .category = "Food", .taxFlag = true})
        .transaction({.date = end, .amount = 5, .category = "Food"})
        .transaction({.date = day(2014, 3, 1), .amount = 999, .category = "Food", .taxFlag = true});
    const auto report = CVReport::initWithCatgoryTax(categories(), transactions(), start, end);
    EXPECT_EQ(report->title(), "Tax Report for: 1/1/14 to 2/28/14");
    EXPECT_EQ(report->labels(), (QStringList{"Category", "Number of Transactions", "Amount of Tax"}));
    EXPECT_EQ(report->line(0).texts, (QStringList{"Food", "2", "$1,010.50"}));
    EXPECT_EQ(report->line(1).texts, (QStringList{"Car", "0", "$0.00"}));
}

/// The figures computed in plain code, with one walk for each category.
QStringList plainFigures(CVReportType type, const CVCategory& category, const CVTransactions& transactions,
                         const CVDayRange& range) {
    const QBMoneyFormatter money;
    if (type == CVReportType::CategoryTotals) {
        const double average = computeAverageForTransactions(category, transactions, range.start, range.end);
        return {money.string(RoundDoubleToTwoPlaces(average)), money.string(category.expenseTarget() - average)};
    }
    if (type == CVReportType::CategoryTax)
        return {QString::number(taxItemsForCategoryFromTransactions(category, transactions, range.start, range.end)),
                money.string(taxExpenseForCategoryFromTransactions(category, transactions, range.start, range.end))};
    double spent = 0;
    for (const auto& transaction : transactions) {
        const auto date = transaction->effectiveDate();
        if (date && *date >= range.start && *date <= range.end)
            spent += transaction->amount();
    }
    if (spent < 0.01)
        spent = 1.0;
    return {QString::number(RoundDoubleToTwoPlaces(category.total() / spent * 100), 'f', 2) + '%'};
}

TEST_F(CategoryReports, EqualWalksForEachCategoryAloneOnRandomBudgets) {
    for (quint32 seed = 0; seed < 200; ++seed) {
        RandomBudget random(seed);
        const CVDocument& document = random.document();
        const auto date = random.date();
        const CVDayRange range{date.value_or(start), date.value_or(start).dateByAddingYears(1, 0, 0)};
        for (const auto& category : document.categories())
            computeAveragesForArray(*category, document.transactions(), range.start, range.end);
        const auto plan =
            CVReport::initWithCatgoryTotals(document.categories(), document.transactions(), range.start, range.end);
        const auto tax =
            CVReport::initWithCatgoryTax(document.categories(), document.transactions(), range.start, range.end);
        const auto percent =
            CVReport::initWithCatgoryPercents(document.categories(), document.transactions(), range.start, range.end);
        for (std::size_t i = 0; i < document.countOfCategories(); ++i) {
            const CVCategory& category = *document.objectInCategoriesAtIndex(i);
            const auto figures = [&](CVReportType type) {
                return plainFigures(type, category, document.transactions(), range);
            };
            ASSERT_EQ(plan->line(i).texts.mid(3), figures(CVReportType::CategoryTotals)) << seed;
            ASSERT_EQ(tax->line(i).texts.mid(1), figures(CVReportType::CategoryTax)) << seed;
            ASSERT_EQ(percent->line(i).texts.mid(2), figures(CVReportType::CategoryPercents)) << seed;
        }
    }
}

} // namespace
