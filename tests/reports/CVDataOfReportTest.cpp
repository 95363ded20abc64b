#include "reports/CVDataOfReport.h"

#include "kit/BudgetBuilder.h"
#include "kit/CommaLocale.h"
#include "reports/CVReport.h"
#include "reports/CVSummaryTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// Amounts with a comma do not show.
class CVDataOfReportTest : public testing::Test {
protected:
    CommaLocale mLocale;
    BudgetBuilder mBudget;
};

TEST_F(CVDataOfReportTest, HoldsWhatATransactionSaysAndNotItsPrintedForm) {
    mBudget.category("Food, \"fresh\"", 1)
        .transaction({.date = day(2014, 3, 7), .amount = 1234.5, .payTo = "A\nB", .xfor = "a;b", .categoryID = 1})
        .transaction({.amount = -0.001, .categoryID = 9})
        .transaction({.date = day(12345, 1, 2), .amount = std::numeric_limits<double>::infinity(), .categoryID = 1});
    const auto report = CVReport::initWithTransactions(mBudget.document().transactions());
    EXPECT_EQ(CVCSVOfReport(*report), "#,Date,Amount,Paid To,For,Category\r\n"
                                      "1,2014-03-07,1234.5,\"A\nB\",a;b,\"Food, \"\"fresh\"\"\"\r\n"
                                      "2,,-0.001,,,\r\n"
                                      "3,12345-01-02,Infinity,,,\"Food, \"\"fresh\"\"\"\r\n");
    EXPECT_EQ(
        CVJSONOfReport(*report),
        "[\n"
        R"({"#":1,"Date":"2014-03-07","Amount":1234.5,"Paid To":"A\u000aB","For":"a;b","Category":"Food, \"fresh\""},)"
        "\n"
        R"({"#":2,"Date":null,"Amount":-0.001,"Paid To":"","For":"","Category":""},)"
        "\n"
        R"({"#":3,"Date":"12345-01-02","Amount":"Infinity","Paid To":"","For":"","Category":"Food, \"fresh\""})"
        "\n]\n");
}

class TwoColumns final : public CVSummaryTable {
public:
    [[nodiscard]] QString columnTitle(int column) const override { return column == 0 ? "A" : "B"; }
    [[nodiscard]] std::optional<double> objectValue(int column, int /*row*/) const override {
        return column == 0 ? std::optional(0.1 + 0.2) : std::nullopt;
    }
};

TEST_F(CVDataOfReportTest, HoldsTheTotalsOfTheSummaryButNoBlankLine) {
    mBudget.category("Food", 1);
    const auto report = CVReport::initWithSummaryTable(TwoColumns(), mBudget.document().categories(), 2);
    EXPECT_EQ(CVCSVOfReport(*report), "Category,A,B,Total\r\nFood,0.3,0,0.3\r\nTotal,0.3,0,\r\n");
    EXPECT_EQ(CVJSONOfReport(*report), "[\n{\"Category\":\"Food\",\"A\":0.3,\"B\":0,\"Total\":0.3},\n"
                                       "{\"Category\":\"Total\",\"A\":0.3,\"B\":0,\"Total\":null}\n]\n");
}

} // namespace
