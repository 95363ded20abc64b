#include "importing/CVCategoryMemory.h"

#include "kit/BudgetBuilder.h"
#include "kit/RandomBudget.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

/// What was recorded in a row of the table: as many transactions as there are letters, the newest first, each with the
/// category that begins with its letter.
struct RecordedRow {
    const char* payee;
    const char* categories;
    const char* purpose = "";
};

struct MemoryRow {
    const char* behaviour;
    std::vector<RecordedRow> recorded;
    const char* payee;
    const char* category;
    CVSureness sure = CVSureness::None;
    const char* purpose = "";
};

void PrintTo(const MemoryRow& row, std::ostream* out) {
    *out << row.behaviour;
}

const QStringList kCategories{"Food", "Household", "Travel", "Pets"};

QString categoryOfLetter(char letter) {
    for (const QString& name : kCategories) {
        if (name.front().toLatin1() == letter)
            return name;
    }
    return {};
}

void buildMemorised(BudgetBuilder& budget, const std::vector<RecordedRow>& rows) {
    quint32 id = 1;
    for (const QString& name : kCategories)
        budget.category(name, id++);
    QBDate date = day(2026, 3, 31);
    for (const RecordedRow& row : rows) {
        for (const char letter : std::string_view(row.categories)) {
            BudgetBuilder::Entry entry{.date = date,
                                       .amount = 10,
                                       .payTo = QString::fromUtf8(row.payee),
                                       .xfor = QString::fromUtf8(row.purpose),
                                       .category = categoryOfLetter(letter)};
            // Of a category that was deleted.
            if (entry.category.isEmpty())
                entry.categoryID = 99;
            budget.transaction(entry);
            date = daysLater(date, -1);
        }
    }
}

class CVCategoryMemoryTest : public testing::TestWithParam<MemoryRow> {};

TEST_P(CVCategoryMemoryTest, Proposes) {
    BudgetBuilder budget;
    buildMemorised(budget, GetParam().recorded);
    const CVCategoryMemory memory(budget.document());
    const auto found = memory.of(QString::fromUtf8(GetParam().payee), QString::fromUtf8(GetParam().purpose));
    EXPECT_EQ(found.category, QString::fromUtf8(GetParam().category));
    EXPECT_EQ(found.sure, GetParam().sure);
    EXPECT_EQ(found.from.empty(), GetParam().sure == CVSureness::None);
}

constexpr auto kSure = CVSureness::Sure;
constexpr auto kLikely = CVSureness::Likely;

INSTANTIATE_TEST_SUITE_P(
    Payees, CVCategoryMemoryTest,
    testing::Values(
        MemoryRow{"nothing for a payee that nobody knows", {{"Corner Market", "FFF"}}, "Salon Pelham", ""},
        MemoryRow{"nothing for an empty payee", {{"", "FFF"}}, "", ""},
        MemoryRow{"what was always so, surely", {{"Corner Market", "FF"}}, "Corner Market", "Food", kSure},
        MemoryRow{"what was so once, likely", {{"Corner Market", "F"}}, "Corner Market", "Food", kLikely},
        MemoryRow{"what is mostly so, likely", {{"Corner Market", "FFHFFF"}}, "Corner Market", "Food", kLikely},
        MemoryRow{
            "what is mostly so lately, likely", {{"Corner Market", "FFFHHHHH"}}, "Corner Market", "Household", kLikely},
        MemoryRow{"nothing for as many of each", {{"Corner Market", "FHFH"}}, "Corner Market", ""},
        MemoryRow{"nothing without a majority", {{"Corner Market", "FHTF"}}, "Corner Market", ""},
        MemoryRow{"what somebody decided on twelve transactions ago, surely",
                  {{"Corner Market", "FFFFFFFFFFFFHHHHHHHHHHHHHHHHHH"}},
                  "Corner Market",
                  "Food",
                  kSure},
        MemoryRow{"what has changed again and again, likely",
                  {{"Corner Market", "FFFFFFFFFFFFHHHFFFHHH"}},
                  "Corner Market",
                  "Food",
                  kLikely},
        MemoryRow{"what was otherwise once and long ago, surely",
                  {{"Corner Market", "FFFFFFFFFFFFFFFFFFFFFFHFFFFFFFFFFFFFFFFF"}},
                  "Corner Market",
                  "Food",
                  kSure},
        MemoryRow{"nothing of a category that was deleted", {{"Corner Market", "XXXX"}}, "Corner Market", ""},
        MemoryRow{"what was so beside a category that was deleted",
                  {{"Corner Market", "XFFX"}},
                  "Corner Market",
                  "Food",
                  kSure}));

INSTANTIATE_TEST_SUITE_P(
    Spellings, CVCategoryMemoryTest,
    testing::Values(MemoryRow{"the category of another spelling, surely",
                              {{"Corner Market", "FFF"}},
                              "CORNER MARKET 4711 SPRINGF",
                              "Food",
                              kSure},
                    MemoryRow{"that of two spellings together",
                              {{"CORNER MARKET 0815", "F"}, {"Corner Market", "F"}},
                              "corner market 22",
                              "Food",
                              kSure},
                    MemoryRow{"that of a likely payee, never surely",
                              {{"Green Valley Foods", "FFF"}},
                              "GREEN VALLEY FOODS SPRINGFIELD",
                              "Food",
                              kLikely},
                    MemoryRow{"that of the likest payee",
                              {{"Garden Street Flowers", "HHH"}, {"Garden Street School", "TTT"}},
                              "GARDEN STREET SCHOO",
                              "Travel",
                              kLikely},
                    MemoryRow{
                        "nothing of a payee that is hardly like it", {{"Pizzeria Sole", "FFF"}}, "Pizzeria Roma", ""},
                    MemoryRow{"what a word says that only one category has",
                              {{"Pizzeria Sole", "F"}, {"Pizzeria Roma", "F"}, {"Pizzeria Mare", "F"}},
                              "Pizzeria Luna",
                              "Food",
                              kLikely},
                    MemoryRow{"nothing for a word that two payees have",
                              {{"Pizzeria Sole", "F"}, {"Pizzeria Roma", "F"}},
                              "Pizzeria Luna",
                              ""},
                    MemoryRow{"nothing for a word that says different things",
                              {{"Town Transit", "T"}, {"Town Theatre", "P"}, {"Town Works", "H"}},
                              "Town Museum",
                              ""},
                    MemoryRow{"nothing for words that contradict each other",
                              {{"Pizzeria Sole", "F"},
                               {"Pizzeria Roma", "F"},
                               {"Pizzeria Mare", "F"},
                               {"Ferry Blue", "T"},
                               {"Ferry Green", "T"},
                               {"Ferry White", "T"}},
                              "Ferry Pizzeria",
                              ""}));

INSTANTIATE_TEST_SUITE_P(Purposes, CVCategoryMemoryTest,
                         testing::Values(MemoryRow{"what was recorded with this purpose",
                                                   {{"Harbor Bookshop", "HH", "birthday"},
                                                    {"Harbor Bookshop", "PP", "books"}},
                                                   "Harbor Bookshop",
                                                   "Household",
                                                   kSure,
                                                   "Birthday"},
                                         MemoryRow{"the usual one for a purpose that is new",
                                                   {{"Harbor Bookshop", "HHHF", "birthday"}},
                                                   "Harbor Bookshop",
                                                   "Household",
                                                   kLikely,
                                                   "Easter"}));

TEST(CVCategoryMemory, ProposesWhatMostOfItWasFor) {
    BudgetBuilder budget;
    buildMemorised(budget, {{"Town Transit", "TT", "bus"}, {"Town Transit", "T", "ten tickets"}, {"Piano", "PP", ""}});
    const CVCategoryMemory memory(budget.document());
    EXPECT_EQ(memory.of("Town Transit").purpose, "bus");
    EXPECT_EQ(memory.of("Piano").purpose, QString());
}

TEST(CVCategoryMemory, ProposesNoPurposeThatDiffersEachTime) {
    BudgetBuilder budget;
    buildMemorised(budget, {{"Town Transit", "T", "bus"}, {"Town Transit", "T", "ten tickets"}});
    EXPECT_EQ(CVCategoryMemory(budget.document()).of("Town Transit").purpose, QString());
}

TEST(CVCategoryMemory, NamesTheFiveNewestTransactionsOfTheCategory) {
    BudgetBuilder budget;
    buildMemorised(budget, {{"Corner Market", "FFHFFFFF"}});
    const auto from = CVCategoryMemory(budget.document()).of("Corner Market").from;
    const CVTransactions expected{budget.transactionAt(0), budget.transactionAt(1), budget.transactionAt(3),
                                  budget.transactionAt(4), budget.transactionAt(5)};
    EXPECT_EQ(from, expected);
}

TEST(CVCategoryMemory, DoesNotFollowLaterChanges) {
    BudgetBuilder budget;
    buildMemorised(budget, {{"Corner Market", "FF"}});
    const CVCategoryMemory memory(budget.document());
    for (const auto& transaction : budget.document().transactions())
        transaction->setCategoryID(2);
    EXPECT_EQ(memory.of("CORNER MARKET 12").category, "Food");
}

/// Whatever a budget holds, a proposal is a category that it has, from transactions that have it.
TEST(CVCategoryMemory, ProposesOnlyWhatARandomBudgetHas) {
    for (quint32 seed = 1; seed <= 200; ++seed) {
        RandomBudget random(seed);
        CVDocument& document = random.document();
        const CVCategoryMemory memory(document);
        for (const auto& transaction : document.transactions()) {
            const auto found = memory.of(transaction->payTo(), transaction->xfor());
            EXPECT_EQ(found.category.isEmpty(), found.sure == CVSureness::None);
            for (const auto& origin : found.from)
                EXPECT_EQ(origin->categoryName(), found.category) << seed;
        }
    }
}

} // namespace
