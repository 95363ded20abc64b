#include "contents/CVTransactionSearch.h"

#include "kit/BudgetBuilder.h"
#include "kit/DefaultLocale.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

enum Kind { kAll, kPaidTo, kFor, kCategory, kTax, kUserFlag, kGreater, kEqual, kLess, kBeyond };

/// The payees of the transactions found, in order.
QStringList found(const CVDocument& document, int kind, const QString& text) {
    QStringList payees;
    for (const auto& transaction : searchTransactionsWithString(document.transactions(), kind, text))
        payees.append(transaction->payTo());
    return payees;
}

struct SearchRow {
    const char* behaviour;
    int kind;
    const char* text;
    QStringList found;
};

class CVTransactionSearchTest : public testing::TestWithParam<SearchRow> {
protected:
    CVTransactionSearchTest() {
        mBudget.category("Food", 1).category("Fuel", 2);
        mBudget.transaction({.amount = 12.5, .payTo = "Market", .xfor = "bread", .category = "Food", .taxFlag = true})
            .transaction({.amount = 12.5000004, .payTo = "Station", .xfor = "petrol", .category = "Fuel"})
            .transaction(
                {.amount = 12.51, .payTo = "Baker", .xfor = "BREAD rolls", .category = "Food", .userFlag = true})
            .transaction({.amount = -3, .payTo = "Refund", .xfor = "", .categoryID = 99});
    }

    BudgetBuilder mBudget;
};

TEST_P(CVTransactionSearchTest, Finds) {
    EXPECT_EQ(found(mBudget.document(), GetParam().kind, GetParam().text), GetParam().found) << GetParam().behaviour;
}

// A transaction whose category was deleted has no category name, so a search for any name finds it.
INSTANTIATE_TEST_SUITE_P(
    Rows, CVTransactionSearchTest,
    testing::Values(
        SearchRow{"a payee", kPaidTo, "mark", {"Market"}},
        SearchRow{"case does not count", kPaidTo, "MARKET", {"Market"}},
        SearchRow{"the text is not trimmed", kPaidTo, " Market", {}},
        SearchRow{"a remark", kFor, "bread", {"Market", "Baker"}},
        SearchRow{"a category", kCategory, "fue", {"Station", "Refund"}},
        SearchRow{"any of the three texts", kAll, "st", {"Station", "Refund"}},
        SearchRow{"all texts, a remark", kAll, "roll", {"Baker", "Refund"}},
        SearchRow{"an empty remark contains nothing", kFor, "b", {"Market", "Baker"}},
        SearchRow{"taxed: yes", kTax, "yes", {"Market"}},
        SearchRow{"taxed twice: the text holds both words", kTax, "Yes, on", {"Market", "Market"}},
        SearchRow{"not taxed", kTax, "no", {"Station", "Baker", "Refund"}},
        SearchRow{"the search text must contain the word", kTax, "n", {}},
        SearchRow{"not taxed twice", kTax, "No Off", {"Station", "Station", "Baker", "Baker", "Refund", "Refund"}},
        SearchRow{"flagged", kUserFlag, "ON", {"Baker"}},
        SearchRow{"not flagged", kUserFlag, "off", {"Market", "Station", "Refund"}},
        SearchRow{"greater", kGreater, "12.505", {"Baker"}}, SearchRow{"greater is not equal", kGreater, "12.51", {}},
        SearchRow{"a text without a number counts as zero", kGreater, "abc", {"Market", "Station", "Baker"}},
        SearchRow{"equal within a millionth", kEqual, "12.5", {"Market", "Station"}},
        SearchRow{"equal, the leading number counts", kEqual, "12.51 or so", {"Baker"}},
        SearchRow{"less", kLess, "0", {"Refund"}}, SearchRow{"no such kind", kBeyond, "Market", {}},
        SearchRow{"no such kind either", -1, "Market", {}}));

TEST(CVTransactionSearch, ALocalesDecimalCommaIsUnderstood) {
    const DefaultLocale locale{QLocale(QLocale::German)};
    BudgetBuilder budget;
    budget.transaction({.amount = 12.5, .payTo = "Markt"}).transaction({.amount = 12, .payTo = "Bank"});
    EXPECT_EQ(found(budget.document(), kEqual, "12,5"), QStringList{"Markt"});
    EXPECT_EQ(found(budget.document(), kEqual, "12.5"), QStringList{"Markt"});
}

TEST(CVTransactionSearch, AMissingTextIsAlwaysFound) {
    BudgetBuilder budget;
    budget.transaction({.payTo = QString(), .xfor = "bread", .categoryID = 0});
    EXPECT_EQ(found(budget.document(), kPaidTo, "x").size(), 1);
    EXPECT_EQ(found(budget.document(), kFor, "x").size(), 0);
}

TEST(CVTransactionSearch, TheKindsHaveTheirTitles) {
    EXPECT_EQ(CVTitleOfSearchKind(0), "All Text Fields");
    EXPECT_EQ(CVTitleOfSearchKind(8), "Amount Less Than");
    EXPECT_TRUE(CVTitleOfSearchKind(9).isEmpty());
    EXPECT_TRUE(CVTitleOfSearchKind(-1).isEmpty());
}

/// A short text of few different letters, so that many match, in shared or own memory.
QString anyText() {
    static const QStringList kShared{"a", "Ab", "abc", "ÄB", "ßa", "İb", "", "xyz"};
    const auto pick = *rc::gen::inRange<qsizetype>(0, kShared.size() + 3);
    if (pick < kShared.size())
        return kShared[pick];
    return *rc::gen::arbitrary<bool>() ? QString() : QString(kShared[pick % 5] + kShared[(pick + 1) % 5]);
}

RC_GTEST_PROP(CVTransactionSearchProperty, TextsAreFoundAsIfEachWereLookedAtAlone, (const std::vector<quint8>& sizes)) {
    BudgetBuilder budget;
    for (std::size_t i = 0; i < sizes.size(); ++i)
        budget.transaction({.payTo = anyText(), .xfor = anyText()});
    const QString text = QStringList{"a", "AB", "ä", "ss", "i", "b"}[*rc::gen::inRange(0, 6)];
    const auto contains = [&text](const QString& field) {
        return field.isNull() || field.contains(text, Qt::CaseInsensitive);
    };
    CVTransactions payees;
    CVTransactions remarks;
    for (const auto& transaction : budget.document().transactions()) {
        if (contains(transaction->payTo()))
            payees.push_back(transaction);
        if (contains(transaction->xfor()))
            remarks.push_back(transaction);
    }
    RC_ASSERT(searchTransactionsWithString(budget.document().transactions(), kPaidTo, text) == payees);
    RC_ASSERT(searchTransactionsWithString(budget.document().transactions(), kFor, text) == remarks);
}

} // namespace
