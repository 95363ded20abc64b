#include "model/CVExpenseFrequency.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct CodeRow {
    qint64 code;
    qint64 constant;
    std::string_view name;
};

constexpr CodeRow kCodes[]{
    {0, CVExpenseFrequency::kWeekly, "Weekly"},
    {1, CVExpenseFrequency::kBiWeekly, "Bi-Weekly"},
    {2, CVExpenseFrequency::kSemiMonthly, "Semi-Monthly"},
    {3, CVExpenseFrequency::kMonthly, "Monthly"},
    {4, CVExpenseFrequency::kBiMonthly, "Bi-Monthly"},
    {5, CVExpenseFrequency::kQuarterly, "Quarterly"},
    {6, CVExpenseFrequency::kSemiAnnually, "Semi-Annually"},
    {7, CVExpenseFrequency::kAnnually, "Annually"},
};

TEST(CVExpenseFrequency, NamesEachCodeAndFindsItAgain) {
    for (const CodeRow& row : kCodes) {
        EXPECT_EQ(row.constant, row.code);
        EXPECT_EQ(CVExpenseFrequency::nameOfCode(row.code), row.name);
        EXPECT_EQ(CVExpenseFrequency::codeOfName(row.name), row.code);
    }
}

TEST(CVExpenseFrequency, HasANullNameForAnyOtherCode) {
    using Limits = std::numeric_limits<qint64>;
    for (const qint64 code : {qint64(-1), qint64(8), qint64(1) << 32, Limits::max(), Limits::min()})
        EXPECT_EQ(CVExpenseFrequency::nameOfCode(code).data(), nullptr) << code;
}

TEST(CVExpenseFrequency, KnowsNamesOnlyToTheLetter) {
    EXPECT_EQ(CVExpenseFrequency::kUnknown, -1);
    for (const std::string_view name :
         {"", "monthly", "MONTHLY", "Month", "Monthly ", " Monthly", "Monthlyx", "BiWeekly", "2 Months", "(null)", "3"})
        EXPECT_EQ(CVExpenseFrequency::codeOfName(name), -1) << name;
    EXPECT_EQ(CVExpenseFrequency::codeOfName({}), -1);
}

} // namespace
