#include "kit/BudgetBuilder.h"
#include "model/CVCompareTransactions.h"
#include "model/CVTransactionSort.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <random>

namespace {

using testing::ElementsAreArray;

using Lines = CVDocument::Transactions;

constexpr std::array kColumnKeys{"date", "amount", "tofrom", "for", "category", "no such column"};
constexpr quint32 kNamelessCategory = 8;
constexpr quint32 kNoSuchCategory = 99;

/// A random budget in which each transaction has all that it can be sorted by. So few values that many are equal.
class CompleteBudget {
public:
    CompleteBudget(quint32 seed, std::size_t count) : mRandom(seed) {
        // Names that differ in case alone, an ID that two share, and a name that is empty, but not missing.
        mBudget.category("Auto", 1).category("food", 2).category("FOOD", 3).category("Ärger", 4).category("Zoo", 1);
        mBudget.category(QLatin1String(""), 5).category(QString(), kNamelessCategory);
        for (std::size_t i = 0; i < count; ++i)
            addLine();
    }

    [[nodiscard]] const Lines& lines() { return mBudget.document().transactions(); }
    [[nodiscard]] const CVDocument::Categories& categories() { return mBudget.document().categories(); }
    [[nodiscard]] std::mt19937& random() { return mRandom; }

private:
    [[nodiscard]] quint32 below(quint32 bound) { return static_cast<quint32>(mRandom() % bound); }
    [[nodiscard]] QString word() {
        static const QStringList kWords{"bread", "Bread", "BREAD", "zoë", "Zoë", "Öl", QLatin1String(""), "a"};
        return kWords[static_cast<qsizetype>(below(static_cast<quint32>(kWords.size())))];
    }
    void addLine() {
        BudgetBuilder::Entry entry;
        if (below(30) != 0)
            entry.date = day(2014, 2, 1).dateByAddingYears(0, 0, below(60));
        entry.amount = below(80) * 0.25 - 10;
        entry.payTo = word();
        entry.xfor = word() + word();
        entry.categoryID = 1 + below(5);
        mBudget.transaction(entry);
    }

    std::mt19937 mRandom;
    BudgetBuilder mBudget;
};

Lines inTheOrderOfTheComparison(Lines lines, const CVTransactionSortContext& context) {
    std::stable_sort(lines.begin(), lines.end(),
                     [&context](const auto& a, const auto& b) { return CVCompareTransactions(*a, *b, context) < 0; });
    return lines;
}

/// Takes the line at `from` out and puts it in where it stands at `to`.
void moveLine(Lines& lines, std::size_t from, std::size_t to) {
    const auto at = [&lines](std::size_t index) { return lines.begin() + static_cast<std::ptrdiff_t>(index); };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
}

void moveRandomLines(Lines& lines, std::mt19937& random, std::size_t count) {
    for (; count > 0; --count) {
        const std::size_t from = random() % lines.size();
        moveLine(lines, from, random() % lines.size());
    }
}

/// What happens to lines that were in order; there is at least one.
struct Displacement {
    const char* name;
    void (*apply)(Lines& lines, std::mt19937& random);
};

const std::vector<Displacement> kDisplacements{
    {"none", [](Lines&, std::mt19937&) {}},
    {"the last line stands first", [](Lines& lines, std::mt19937&) { moveLine(lines, lines.size() - 1, 0); }},
    {"the first line stands last", [](Lines& lines, std::mt19937&) { moveLine(lines, 0, lines.size() - 1); }},
    {"both ends changed places", [](Lines& lines, std::mt19937&) { std::swap(lines.front(), lines.back()); }},
    {"a line belongs further down",
     [](Lines& lines, std::mt19937& random) {
         const std::size_t from = random() % lines.size();
         moveLine(lines, from, random() % (from + 1));
     }},
    {"a line belongs further up",
     [](Lines& lines, std::mt19937& random) {
         const std::size_t to = random() % lines.size();
         moveLine(lines, random() % (to + 1), to);
     }},
    {"two neighbours changed places",
     [](Lines& lines, std::mt19937& random) {
         const std::size_t index = random() % lines.size();
         moveLine(lines, index, std::min(index + 1, lines.size() - 1));
     }},
    {"several", [](Lines& lines, std::mt19937& random) { moveRandomLines(lines, random, 5); }},
    {"some at the end, as after several entries",
     [](Lines& lines, std::mt19937& random) {
         for (int i = 0; i < 4; ++i)
             moveLine(lines, random() % lines.size(), lines.size() - 1);
     }},
    {"very many", [](Lines& lines, std::mt19937& random) { moveRandomLines(lines, random, lines.size() / 3); }},
    {"all the other way round", [](Lines& lines, std::mt19937&) { std::reverse(lines.begin(), lines.end()); }},
    {"shuffled", [](Lines& lines, std::mt19937& random) { std::shuffle(lines.begin(), lines.end(), random); }}};

/// Both ways to sort `given` answer as the comparison does, and say that all lines are complete or that they are not.
void expectSortedAsByComparison(const Lines& given, const CVTransactionSortContext& context,
                                const CVDocument::Categories& categories, bool areComplete) {
    const Lines expected = inTheOrderOfTheComparison(given, context);
    Lines owned = given;
    EXPECT_EQ(CVSortTransactions(owned, context, categories), areComplete);
    EXPECT_TRUE(owned == expected) << "the lines in another order";
    const auto pointerOf = [](const auto& line) { return line.get(); };
    std::vector<CVTransaction*> listed;
    std::transform(given.begin(), given.end(), std::back_inserter(listed), pointerOf);
    EXPECT_EQ(CVSortTransactions(listed, context, categories), areComplete);
    EXPECT_TRUE(std::equal(listed.begin(), listed.end(), expected.begin(), expected.end(),
                           [](const CVTransaction* a, const auto& b) { return a == b.get(); }))
        << "the lines of a list that does not own them in another order";
}

void expectDisplacedLinesMended(CompleteBudget& budget) {
    for (const char* const key : kColumnKeys) {
        for (const bool descending : {false, true}) {
            const CVTransactionSortContext context{key, descending};
            const Lines sorted = inTheOrderOfTheComparison(budget.lines(), context);
            for (const auto& displacement : kDisplacements) {
                SCOPED_TRACE(testing::Message() << key << (descending ? " descending, " : ", ") << displacement.name);
                Lines displaced = sorted;
                displacement.apply(displaced, budget.random());
                expectSortedAsByComparison(displaced, context, budget.categories(), true);
                if (testing::Test::HasFailure())
                    return;
            }
        }
    }
}

TEST(TransactionOrderMending, AnswersAsTheComparisonWhicheverLinesStandInTheWrongPlace) {
    std::mt19937 sizes(1);
    for (quint32 seed = 0; seed < 100; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        // Every third one of few lines: there the ends are everywhere.
        CompleteBudget budget(seed, 1 + sizes() % (seed % 3 == 0 ? 8 : 400));
        ASSERT_NO_FATAL_FAILURE(expectDisplacedLinesMended(budget));
        ASSERT_FALSE(HasFailure());
    }
}

TEST(TransactionOrderMending, AnswersAsTheComparisonInALargeBudget) {
    CompleteBudget budget(7, 5'000);
    expectDisplacedLinesMended(budget);
}

TEST(TransactionOrderMending, AnswersAsTheComparisonForLinesInNoOrderAtAll) {
    for (quint32 seed = 0; seed < 100; ++seed) {
        CompleteBudget budget(seed, 400);
        for (const char* const key : kColumnKeys) {
            for (const bool descending : {false, true}) {
                SCOPED_TRACE(testing::Message() << "seed " << seed << ", " << key << (descending ? " descending" : ""));
                expectSortedAsByComparison(budget.lines(), {key, descending}, budget.categories(), true);
            }
        }
    }
}

struct EqualLinesRow {
    const char* behaviour;
    std::vector<double> amounts;
    /// The indexes of the amounts above, in ascending order.
    std::vector<std::size_t> order;
};

TEST(TransactionOrderMending, LeavesEqualLinesInTheOrderInWhichTheyStood) {
    const EqualLinesRow rows[] = {{"a line from below goes behind its equals", {1, 2, 2, 3, 4, 2}, {0, 1, 2, 5, 3, 4}},
                                  {"one from above stays before them", {2, 1, 2, 2, 3}, {1, 0, 2, 3, 4}},
                                  {"by one place", {1, 2, 2, 3, 2}, {0, 1, 2, 4, 3}},
                                  {"equal ones from below keep their order", {1, 3, 4, 2, 5, 2}, {0, 3, 5, 1, 2, 4}},
                                  {"all the same", {2, 2, 2}, {0, 1, 2}},
                                  {"the least of all goes before all", {2, 2, 3, 1}, {3, 0, 1, 2}}};
    for (const auto& row : rows) {
        BudgetBuilder budget;
        for (const double amount : row.amounts)
            budget.transaction({.amount = amount});
        const Lines& given = budget.document().transactions();
        Lines expected;
        for (const std::size_t index : row.order)
            expected.push_back(given[index]);
        Lines sorted = given;
        CVSortTransactions(sorted, {"amount", false}, budget.document().categories());
        EXPECT_THAT(sorted, ElementsAreArray(expected)) << row.behaviour;
    }
}

/// Something that a transaction can be without, and the columns that then cannot place it.
struct LackRow {
    const char* name;
    void (*takeAway)(CVTransaction& transaction);
    QStringList columns;
};

const std::vector<LackRow> kLacks{
    {"nothing", [](CVTransaction&) {}, {}},
    {"a date", [](CVTransaction& line) { line.setEffectiveDate(std::nullopt); }, {}},
    {"a category", [](CVTransaction& line) { line.setCategoryID(kNoSuchCategory); }, {"date", "category"}},
    {"the category's name", [](CVTransaction& line) { line.setCategoryID(kNamelessCategory); }, {"date", "category"}},
    {"a payee", [](CVTransaction& line) { line.setPayTo(QString()); }, {"tofrom"}},
    {"a purpose",
     [](CVTransaction& line) {
         // It can be taken away only where there is no payee.
         line.setPayTo(QString());
         line.setFor(QString());
         line.setPayTo("bread");
     },
     {"for"}},
    {"all of them",
     [](CVTransaction& line) {
         line.setEffectiveDate(std::nullopt);
         line.setCategoryID(kNoSuchCategory);
         line.setPayTo(QString());
         line.setFor(QString());
     },
     {"date", "category", "tofrom", "for"}}};

/// One line of the displaced ones, and a few that stand behind it, lack something.
void expectIncompleteLinesSorted(const LackRow& lack, std::size_t count, std::size_t place, quint32 seed) {
    for (const char* const key : kColumnKeys) {
        for (const bool descending : {false, true}) {
            const CVTransactionSortContext context{key, descending};
            for (const auto& displacement : kDisplacements) {
                SCOPED_TRACE(testing::Message() << lack.name << " lacks at " << place << ", seed " << seed << ", "
                                                << key << (descending ? " descending, " : ", ") << displacement.name);
                CompleteBudget budget(seed, count);
                Lines lines = inTheOrderOfTheComparison(budget.lines(), context);
                displacement.apply(lines, budget.random());
                for (std::size_t index = place; index < count; index += 50)
                    lack.takeAway(*lines[index]);
                expectSortedAsByComparison(lines, context, budget.categories(), !lack.columns.contains(key));
                if (testing::Test::HasFailure())
                    return;
            }
        }
    }
}

TEST(TransactionOrderMending, AnswersAsTheComparisonAndSaysSoWhereLinesLackWhatTheyAreSortedBy) {
    constexpr std::size_t kCount = 60;
    for (const auto& lack : kLacks) {
        for (const std::size_t place : {std::size_t(0), kCount / 2, kCount - 1}) {
            for (quint32 seed = 0; seed < 6; ++seed) {
                expectIncompleteLinesSorted(lack, kCount, place, seed);
                ASSERT_FALSE(HasFailure());
            }
        }
        expectIncompleteLinesSorted(lack, 1, 0, 1);
    }
}

/// Lines are moved before the one without a payee is met; behind it the order of the comparison depends on where each
/// stood before that.
TEST(TransactionOrderMending, BeginsAnewWithTheLinesAsTheyStoodWhenOneLacksItsText) {
    constexpr std::ptrdiff_t kCount = 40;
    for (quint32 seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        BudgetBuilder budget;
        for (int i = 0; i < kCount; ++i)
            budget.transaction({.payTo = QString::number(100 + i)});
        Lines lines = budget.document().transactions();
        std::shuffle(lines.begin(), lines.end(), random);
        const std::ptrdiff_t lacking = 8 + static_cast<std::ptrdiff_t>(random() % 12);
        const auto firstBehind = lines.begin() + lacking;
        const auto payeeBefore = [](const auto& a, const auto& b) { return a->payTo() < b->payTo(); };
        std::sort(lines.begin(), firstBehind, payeeBefore);
        moveLine(lines, random() % 3, static_cast<std::size_t>(lacking) - 1);
        (*firstBehind)->setPayTo(QString());
        expectSortedAsByComparison(lines, {"tofrom", false}, budget.document().categories(), false);
    }
}

TEST(TransactionOrderMending, FindsNothingLackingInAnEmptyList) {
    CompleteBudget budget(1, 0);
    for (const char* const key : kColumnKeys)
        expectSortedAsByComparison({}, {key, false}, budget.categories(), true);
}

} // namespace
