#include "transfer/CVTransferValues.h"

#include "kit/BudgetBuilder.h"
#include "kit/CommaLocale.h"
#include "kit/DefaultLocale.h"
#include "kit/Printers.h"
#include "transfer/CVReadTransfer.h"
#include "transfer/CVTransferCSV.h"
#include "transfer/CVTransferJSON.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace {

using namespace CVTransferValues;

constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(CVTransferValues, WritesTheShortestPlainNumber) {
    struct Row {
        double amount;
        const char* text;
    };
    for (const Row& row : {Row{12.5, "12.5"},
                           {-45.1, "-45.1"},
                           {0, "0"},
                           {-0.0, "0"},
                           {1234567, "1234567"},
                           {0.1 + 0.2, "0.30000000000000004"},
                           {1e22, "10000000000000000000000"},
                           {0.0000001, "0.0000001"},
                           {kInfinite, "Infinity"},
                           {-kInfinite, "-Infinity"},
                           {std::nan(""), "NaN"}})
        EXPECT_EQ(textOfAmount(row.amount), row.text);
}

TEST(CVTransferValues, ReadsAnyAmountBackAsTheSameDouble) {
    std::mt19937_64 engine(18);
    int tried = 0;
    const auto comesBack = [&tried](double amount) {
        ++tried;
        const QByteArray text = textOfAmount(amount);
        return amountOfText(text.toStdString()) == amount && !text.contains('e');
    };
    for (int i = 0; i < 50'000; ++i) {
        const auto amount = std::bit_cast<double>(engine());
        if (!std::isnan(amount)) {
            ASSERT_TRUE(comesBack(amount)) << amount;
        }
    }
    EXPECT_GT(tried, 49'000);
    for (const double amount :
         {std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(), kInfinite, -kInfinite})
        EXPECT_TRUE(comesBack(amount)) << amount;
}

TEST(CVTransferValues, ReadsOneNumberAndNothingElse) {
    EXPECT_EQ(amountOfText("12.50"), 12.5);
    EXPECT_EQ(amountOfText("1E+3"), 1000) << "as a spreadsheet writes it";
    for (const char* text : {"", " 1", "1 ", "1,5", "1,234.50", "$1", "+1", "12.50-", "1.2.3", "nan", "NaN", "inf",
                             "infinity", "Infinity ", "0x10", "1e999", "--1", "-", "."})
        EXPECT_FALSE(amountOfText(text)) << text;
}

TEST(CVTransferValues, WritesDaysThatComeBack) {
    struct Row {
        QBDate day;
        const char* text;
    };
    for (const Row& row : {Row{day(2026, 11, 22), "2026-11-22"},
                           {day(2024, 2, 29), "2024-02-29"},
                           {day(44, 3, 15), "0044-03-15"},
                           {day(-44, 3, 15), "-044-03-15"},
                           {day(12026, 1, 1), "12026-01-01"}}) {
        EXPECT_EQ(textOfDay(row.day), row.text);
        EXPECT_EQ(dayOfText(row.text), row.day);
    }
    EXPECT_EQ(textOfDay({}), "");
}

/// One test for all, because making such a locale takes a second.
TEST(CVTransferValues, AreTheSameInEveryLocale) {
    const DefaultLocale locale{QLocale(QLocale::German)};
    const CommaLocale numbers;
    if (!numbers.isInForce())
        GTEST_SKIP() << "this machine has no locale with a decimal comma";
    BudgetBuilder budget;
    budget.transaction({.date = day(2014, 3, 7), .amount = -1234567.25, .taxFlag = true});
    const CVTransactions& transactions = budget.document().transactions();
    const auto csv = CVTransferCSV(budget.document(), transactions);
    const auto json = CVTransferJSON(budget.document(), transactions);
    EXPECT_TRUE(csv->endsWith("\r\n2014-03-07,-1234567.25,,,,yes,,\r\n")) << csv->constData();
    EXPECT_TRUE(json->contains(R"({"date":"2014-03-07","amount":-1234567.25,)")) << json->constData();
    for (const auto& bytes : {csv, json}) {
        const auto read = CVReadTransfer(*bytes);
        ASSERT_TRUE(read.budget) << read.problem.toStdString();
        EXPECT_EQ((*read.budget)->transactions().front()->amount(), -1234567.25);
    }
}

TEST(CVTransferValues, ReadsDaysOfThatFormAlone) {
    for (const char* text :
         {"", "2026-2-3", "2026/11/22", "2026-11/22", "22.11.2026", "2026-02-30", "2026-13-01", "2026-11-22T00:00",
          " 2026-11-22", "2026-11-22 ", "20261122", "2026-11", "26-11-22", "02026-11-22", "2026--1-22", "-", "--"})
        EXPECT_FALSE(dayOfText(text)) << text;
}

} // namespace
