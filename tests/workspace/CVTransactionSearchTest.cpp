#include "workspace/CVTransactionSearch.h"

#include "kit/BudgetBuilder.h"
#include "kit/DefaultLocale.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

enum Kind { kAll, kPaidTo, kFor, kCategory, kTax, kUserFlag, kGreater, kEqual, kLess, kBeyond };

/// The transactions of a document as the list hands them on.
std::vector<CVTransaction*> rowsOf(const CVDocument& document) {
    std::vector<CVTransaction*> rows;
    for (const auto& transaction : document.transactions())
        rows.push_back(transaction.get());
    return rows;
}

/// Payees, in the order found.
QStringList found(const CVDocument& document, int kind, const QString& text) {
    QStringList payees;
    for (const CVTransaction* const transaction : searchTransactionsWithString(rowsOf(document), kind, text))
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

// The transaction whose category is gone has no category name at all, and so is found by every name.
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
    EXPECT_EQ(CVSearchKindTitle(0), "All Text Fields");
    EXPECT_EQ(CVSearchKindTitle(8), "Amount Less Than");
    EXPECT_TRUE(CVSearchKindTitle(9).isEmpty());
    EXPECT_TRUE(CVSearchKindTitle(-1).isEmpty());
}

/// Short texts of few letters, so that many match, in and out of shared memory.
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
    std::vector<CVTransaction*> payees;
    std::vector<CVTransaction*> remarks;
    for (CVTransaction* const transaction : rowsOf(budget.document())) {
        if (contains(transaction->payTo()))
            payees.push_back(transaction);
        if (contains(transaction->xfor()))
            remarks.push_back(transaction);
    }
    RC_ASSERT(searchTransactionsWithString(rowsOf(budget.document()), kPaidTo, text) == payees);
    RC_ASSERT(searchTransactionsWithString(rowsOf(budget.document()), kFor, text) == remarks);
}

struct NarrowingRow {
    const char* behaviour;
    CVSearchQuery before;
    CVSearchQuery query;
    bool narrows;
};

TEST(CVSearchNarrows, SaysWhetherASearchFindsNoMoreThanTheOneBefore) {
    const NarrowingRow rows[] = {{"typing on, all texts", {kAll, "Ma"}, {kAll, "Mar"}, true},
                                 {"typing on, payees", {kPaidTo, "Ma"}, {kPaidTo, "Market"}, true},
                                 {"typing on, purposes", {kFor, "b"}, {kFor, "bread"}, true},
                                 {"typing on, categories", {kCategory, "Fo"}, {kCategory, "Foo"}, true},
                                 {"typing in front", {kPaidTo, "ark"}, {kPaidTo, "Mark"}, true},
                                 {"typing on both sides", {kPaidTo, "ark"}, {kPaidTo, "Market"}, true},
                                 {"the same again", {kPaidTo, "Ma"}, {kPaidTo, "Ma"}, true},
                                 {"deleting", {kPaidTo, "Mar"}, {kPaidTo, "Ma"}, false},
                                 {"deleting all", {kPaidTo, "Mar"}, {kPaidTo, ""}, false},
                                 {"typing between", {kPaidTo, "Mrk"}, {kPaidTo, "Mark"}, false},
                                 {"another text", {kPaidTo, "Ma"}, {kPaidTo, "Bak"}, false},
                                 {"another kind", {kPaidTo, "Ma"}, {kFor, "Mar"}, false},
                                 {"from one text to all", {kPaidTo, "Ma"}, {kAll, "Mar"}, false},
                                 {"from a text to a flag", {kAll, "Ye"}, {kTax, "Yes"}, false},
                                 {"from a flag to a text", {kTax, "Ye"}, {kAll, "Yes"}, false},
                                 {"typing on, taxed", {kTax, "Yes"}, {kTax, "Yes, on"}, false},
                                 {"typing on, flagged", {kUserFlag, "no"}, {kUserFlag, "not on"}, false},
                                 {"typing on, greater", {kGreater, "1"}, {kGreater, "12"}, false},
                                 {"typing on, equal", {kEqual, "1"}, {kEqual, "12"}, false},
                                 {"typing on, less", {kLess, "1"}, {kLess, "12"}, false},
                                 {"the same amount again", {kLess, "1"}, {kLess, "1"}, false},
                                 {"no such kind", {kBeyond, "Ma"}, {kBeyond, "Mar"}, false},
                                 {"no such kind either", {-1, "Ma"}, {-1, "Mar"}, false}};
    for (const auto& row : rows)
        EXPECT_EQ(CVSearchNarrows(row.before, row.query), row.narrows) << row.behaviour;
}

/// Without a text there is no search, whatever its kind: all are listed.
TEST(CVSearchNarrows, FromAnEmptyTextEverySearchFindsNoMore) {
    for (int before = kAll; before <= kLess; ++before) {
        for (int kind = kAll; kind <= kLess; ++kind) {
            for (const QString& text : {QString(), QString(""), QString("Ma"), QString("12")}) {
                EXPECT_TRUE(CVSearchNarrows({before, QString()}, {kind, text})) << before << ' ' << kind;
                EXPECT_TRUE(CVSearchNarrows({before, ""}, {kind, text})) << before << ' ' << kind;
            }
        }
    }
}

std::vector<CVTransaction*> searchedOrAll(const std::vector<CVTransaction*>& rows, const CVSearchQuery& query) {
    return query.text.isEmpty() ? rows : searchTransactionsWithString(rows, query.kind, query.text);
}

/// Counts the searches that narrowed to some, not all, of what was found before.
int expectNarrowedAsFound(const std::vector<CVTransaction*>& rows, const CVSearchQuery& before,
                          const CVSearchQuery& query) {
    if (!CVSearchNarrows(before, query))
        return 0;
    const auto first = searchedOrAll(rows, before);
    const auto narrowed = searchedOrAll(first, query);
    EXPECT_TRUE(narrowed == searchedOrAll(rows, query))
        << before.kind << ' ' << before.text.toStdString() << ", " << query.kind << ' ' << query.text.toStdString();
    return !narrowed.empty() && narrowed.size() < first.size() ? 1 : 0;
}

TEST(CVSearchNarrows, SearchingInWhatWasFoundIsSearchingInEverything) {
    const std::vector<QString> texts{"",   "f", "F",  "fo", "oo", "ood", "food", "Food", "ä",  "är", "Är",      "e",
                                     "e ", " ", "<",  "<b", "&",  "\n",  "ë",    "zz",   "no", "on", "Yes, on", "-",
                                     "-3", "1", "12", "İ",  "i",  "ß",   "ss",   "z",    "pi", "piz"};
    int narrowings = 0;
    for (quint32 seed = 0; seed < 40; ++seed) {
        RandomBudget budget(seed, 40);
        const auto rows = rowsOf(budget.document());
        for (const QString& before : texts) {
            for (const QString& text : texts) {
                for (int kind = kAll; kind <= kLess; ++kind) {
                    narrowings += expectNarrowedAsFound(rows, {kind, before}, {kind, text});
                    narrowings += expectNarrowedAsFound(rows, {(kind + 1) % kBeyond, before}, {kind, text});
                }
            }
        }
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
    EXPECT_GT(narrowings, 1'000) << "searches that had something to narrow";
}

} // namespace
