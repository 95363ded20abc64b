#include "contents/CVGridContents.h"
#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "reports/CVGridSummary.h"
#include "reports/CVReport.h"
#include "reports/CVTextOfReport.h"

#include <gtest/gtest.h>

namespace {

using Value = std::optional<double>;

/// A table with given values; its columns are called A, B, C …
class TableOfValues final : public CVSummaryTable {
public:
    explicit TableOfValues(std::vector<std::vector<Value>> rows) : mRows(std::move(rows)) {}

    [[nodiscard]] QString columnTitle(int column) const override { return QString(QChar(u'A' + column)); }
    [[nodiscard]] Value objectValue(int column, int row) const override {
        return mRows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }

private:
    std::vector<std::vector<Value>> mRows;
};

/// Today is 7 March 2014.
struct SummaryReport : testing::Test {
    [[nodiscard]] std::unique_ptr<const CVReport> reportOf(const std::vector<std::vector<Value>>& rows, int columns) {
        for (std::size_t i = 0; i < rows.size(); ++i)
            budget.category(QStringLiteral("Row %1").arg(i), static_cast<quint32>(i + 1));
        return CVReport::initWithSummaryTable(TableOfValues(rows), budget.document().categories(), columns);
    }

    FixedToday today{day(2014, 3, 7)};
    BudgetBuilder budget;
};

TEST_F(SummaryReport, HasRowsWithTotalsABlankLineAndATotalLine) {
    const auto report = reportOf({{1234.5, -2}, {0.25, 3}}, 2);
    EXPECT_EQ(report->title(), "Summary Report for: 3/7/14");
    EXPECT_EQ(report->labels(), (QStringList{"Category", "A", "B", "Total"}));
    EXPECT_EQ(report->arrayCount(), 2U);
    ASSERT_EQ(report->lineCount(), 4U);
    EXPECT_EQ(report->line(0).texts, (QStringList{"Row 0", "$1,234.50", "-$2.00", "$1,232.50"}));
    EXPECT_EQ(report->line(1).texts, (QStringList{"Row 1", "$0.25", "$3.00", "$3.25"}));
    EXPECT_EQ(report->line(2).kind, CVReportLine::Kind::Blank);
    EXPECT_EQ(report->line(2).texts, QStringList());
    EXPECT_EQ(report->line(3).kind, CVReportLine::Kind::Total);
    EXPECT_EQ(report->line(3).texts, (QStringList{"Total", "$1,234.75", "$1.00"})) << "nothing below the row totals";
}

TEST_F(SummaryReport, ShowsZeroForAMissingValueAndAddsNothing) {
    const auto report = reportOf({{std::nullopt, 5}, {7, std::nullopt}}, 2);
    EXPECT_EQ(report->line(0).texts, (QStringList{"Row 0", "$0.00", "$5.00", "$5.00"}));
    EXPECT_EQ(report->line(1).texts, (QStringList{"Row 1", "$7.00", "$0.00", "$7.00"}));
    EXPECT_EQ(report->line(3).texts, (QStringList{"Total", "$7.00", "$5.00"}));
}

TEST_F(SummaryReport, RoundsTotalsAfterEachAddition) {
    const auto report = reportOf({{0.005, 0.005}, {0.005, 0}}, 2);
    EXPECT_EQ(report->line(0).texts[3], "$0.02") << "0.01 after the first, 0.015 and so 0.02 after the second";
    EXPECT_EQ(report->line(3).texts[1], "$0.02");
}

TEST_F(SummaryReport, SaysTheSameHoweverOftenItsLinesAreAskedFor) {
    const auto report = reportOf({{1, 2}}, 2);
    const QByteArray text = CVTextOfReport(*report);
    EXPECT_EQ(CVTextOfReport(*report), text);
    EXPECT_EQ(report->line(2).texts, (QStringList{"Total", "$1.00", "$2.00"}));
}

TEST_F(SummaryReport, TakesUpToSevenColumns) {
    const auto report = reportOf({{1, 2, 3, 4, 5, 6, 7}}, 7);
    EXPECT_EQ(report->columns().size(), 9U);
    EXPECT_EQ(report->labels().last(), "Total");
    EXPECT_EQ(report->line(0).texts.last(), "$28.00");
    EXPECT_EQ(report->line(2).texts.size(), 8);
}

TEST_F(SummaryReport, WithoutCategoriesHasItsBlankAndTotalLines) {
    const auto report = reportOf({}, 3);
    EXPECT_EQ(report->arrayCount(), 0U);
    ASSERT_EQ(report->lineCount(), 2U);
    EXPECT_EQ(report->line(1).texts, (QStringList{"Total", "$0.00", "$0.00", "$0.00"}));
}

TEST_F(SummaryReport, ShowsTheGridAsItStands) {
    budget.category("Food", 1)
        .transaction({.date = day(2014, 3, 7), .amount = 10, .category = "Food"})
        .transaction({.date = day(2014, 4, 1), .amount = 5.5, .category = "Food"});
    CVGridContents grid(day(2014, 3, 7), CVDisplayPeriods::Month, {});
    grid.reload(budget.document().transactions(), budget.document().categories());
    const auto report = CVReport::initWithSummaryTable(CVGridSummary(grid), grid.rows(), 4);
    EXPECT_EQ(report->labels(),
              (QStringList{"Category", "March 2014", "April 2014", "May 2014", "June 2014", "Total"}));
    EXPECT_EQ(report->line(0).texts, (QStringList{"Food", "$10.00", "$5.50", "$0.00", "$0.00", "$15.50"}));
}

TEST_F(SummaryReport, AsTextIsItsColumnsWithTabulatorsBetween) {
    EXPECT_EQ(CVTextOfReport(*reportOf({{1, std::nullopt}}, 2)), "Summary Report for: 3/7/14\n"
                                                                 "Category\tA\tB\tTotal\n"
                                                                 "Row 0\t$1.00\t$0.00\t$1.00\n"
                                                                 "\n"
                                                                 "Total\t$1.00\t$0.00\n");
}

} // namespace
