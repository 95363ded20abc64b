#include "transfer/CVTransferJSON.h"

#include "kit/BudgetBuilder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

namespace {

QByteArray jsonOf(BudgetBuilder& budget) {
    return CVTransferJSON(budget.document(), budget.document().transactions()).value();
}

TEST(CVTransferJSON, WritesAnObjectOnALineForEachTransaction) {
    BudgetBuilder budget;
    EXPECT_EQ(jsonOf(budget), "[]\n");
    budget.set("Checking", 5).category("Food", 1);
    budget
        .transaction({.date = day(2026, 11, 22),
                      .amount = 12.5,
                      .payTo = "Zoë",
                      .xfor = "rolls",
                      .category = "Food",
                      .set = "Checking",
                      .taxFlag = true})
        .transaction({.amount = -3, .payTo = {}, .userFlag = true});
    EXPECT_EQ(jsonOf(budget),
              "[\n"
              R"({"date":"2026-11-22","amount":12.5,"category":"Food","paidTo":"Zoë","for":"rolls",)"
              R"("tax":true,"flagged":false,"set":"Checking"},)"
              "\n"
              R"({"date":null,"amount":-3,"category":"","paidTo":"","for":"","tax":false,"flagged":true,"set":""})"
              "\n]\n");
}

TEST(CVTransferJSON, WritesAStringWhereNumbersEnd) {
    BudgetBuilder budget;
    budget.transaction({.amount = -std::numeric_limits<double>::infinity()}).transaction({.amount = 1e300});
    const auto array = QJsonDocument::fromJson(jsonOf(budget)).array();
    ASSERT_EQ(array.size(), 2);
    EXPECT_EQ(array[0].toObject()["amount"].toString(), "-Infinity");
    EXPECT_EQ(array[1].toObject()["amount"].toDouble(), 1e300);
}

TEST(CVTransferJSON, EscapesWhatJSONCannotHold) {
    const QString text = QStringLiteral("a\"b\\c\td\ne/\U0001F355");
    BudgetBuilder budget;
    budget.transaction({.payTo = text});
    const QByteArray json = jsonOf(budget);
    EXPECT_EQ(QJsonDocument::fromJson(json).array()[0].toObject()["paidTo"].toString(), text);
    EXPECT_EQ(json.count('\n'), 3) << json.constData();
}

TEST(CVTransferJSON, CanBeGivenUpHalfway) {
    BudgetBuilder budget;
    for (int i = 0; i < 10'000; ++i)
        budget.transaction({.amount = 1});
    const CVTransactions& rows = budget.document().transactions();
    std::size_t reports = 0;
    EXPECT_FALSE(CVTransferJSON(budget.document(), rows, [&reports](std::size_t) { return ++reports < 2; }));
    EXPECT_EQ(reports, 2U);
    EXPECT_TRUE(CVTransferJSON(budget.document(), rows, [](std::size_t) { return true; }));
}

} // namespace
