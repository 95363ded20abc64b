#include "base/CVDefaultsKeys.h"
#include "budget/BitsOf.h"
#include "budget/PlainScan.h"
#include "contents/CVBudgetContents.h"
#include "contents/CVDuplicates.h"
#include "contents/CVTransactionSearch.h"
#include "contents/CVTransactionText.h"
#include "kit/FixedToday.h"
#include "kit/RandomBudget.h"
#include "model/CVCompareTransactions.h"
#include "model/CVTransactionColumns.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using testing::ElementsAre;

constexpr quint32 kRandomBudgets = 1'000;

bool contains(const QString& text, const QString& pattern) {
    return text.isNull() || text.contains(pattern, Qt::CaseInsensitive);
}

/// The transactions of a document that a list of all sets shows, by plain walks.
CVTransactions plainList(const CVDocument& document, const CVDayRange& range, const QString& search,
                         const CVTransactionSortContext& order) {
    CVTransactions listed;
    for (const auto& transaction : document.transactions()) {
        const auto date = transaction->effectiveDate();
        if (!date || *date < range.start || *date > range.end)
            continue;
        const QString set = transaction->transactionSetName();
        if (search.isEmpty() || contains(transaction->payTo(), search) || contains(transaction->xfor(), search) ||
            contains(transaction->categoryName(), search) ||
            (!set.isNull() && set.contains(search, Qt::CaseInsensitive)))
            listed.push_back(transaction);
    }
    std::stable_sort(listed.begin(), listed.end(),
                     [&order](const auto& a, const auto& b) { return CVCompareTransactions(*a, *b, order) < 0; });
    return listed;
}

CVCategories plainRows(const CVDocument& document) {
    CVCategories rows;
    for (const auto& category : document.categories()) {
        if (std::any_of(document.transactions().begin(), document.transactions().end(),
                        [&](const auto& transaction) { return transaction->categoryID() == category->uniqueID(); }))
            rows.push_back(category);
    }
    return rows;
}

void expectPlainGrid(const CVDocument& document, const CVGridContents& grid) {
    EXPECT_EQ(grid.rows(), plainRows(document));
    for (std::size_t column = 0; column < grid.columns().size(); ++column) {
        const CVDayRange days = grid.rangeOfColumn(static_cast<int>(column));
        EXPECT_EQ(grid.grid().columnTotal(column), PlainScan::cell(document.transactions(), days, nullptr));
        for (std::size_t row = 0; row < grid.rows().size(); ++row) {
            const CVCategory* const category = grid.rows()[row].get();
            EXPECT_EQ(grid.grid().cell(row, column), PlainScan::cell(document.transactions(), days, category));
            CVTransactions behind = PlainScan::transactionsForDateRange(document.transactions(), days, nullptr);
            std::erase_if(behind, [category](const auto& each) { return each->categoryID() != category->uniqueID(); });
            EXPECT_EQ(grid.transactionsOfCell(static_cast<int>(row), static_cast<int>(column)), behind);
        }
    }
}

void expectPlainReports(const CVDocument& document, const CVReportContents& reports) {
    EXPECT_EQ(reports.rows(), plainRows(document));
    EXPECT_EQ(reports.totalNumberOfTransactions(), document.transactions().size());
    for (const auto& category : reports.rows()) {
        const auto plain = PlainScan::averages(*category, document.transactions(), reports.range());
        EXPECT_THAT(category->total(), BitsOf(plain.total));
        EXPECT_THAT(category->monthly(), BitsOf(plain.monthly));
        const double average = PlainScan::averagePerFrequency(*category, document.transactions(), reports.range());
        EXPECT_THAT(reports.figures().average(*category), BitsOf(average));
        EXPECT_THAT(reports.figures().difference(*category), BitsOf(category->expenseTarget() - average))
            << "the plan of a category counts once";
        EXPECT_THAT(reports.figures().taxAmount(*category),
                    BitsOf(PlainScan::taxExpense(*category, document.transactions(), reports.range())));
    }
}

TEST(AllSets, ListGridAndReportsOfRandomBudgetsAreThoseOfAPlainScanOverAllTransactions) {
    const FixedToday today(day(2014, 3, 7));
    for (quint32 seed = 0; seed < kRandomBudgets && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        RandomBudget budget(seed);
        CVDocument& document = budget.document();
        const QBDate start = budget.date().value_or(day(2014, 1, 1));
        const CVDayRange range{start, start.dateByAddingYears(1, 0, 0)};
        CVBudgetContents contents(document, QBDate::date(), static_cast<int>(budget.below(4)));
        CVTransactionList& list = contents.list();
        list.setTransactionPeriod(1);
        list.setRange(range);
        contents.reports().setRange(range);
        list.setSearchText(budget.oneIn(2) ? budget.text().left(1) : QString());
        list.setShownSets(CVShownSets::All);
        list.collectTransactions();
        list.rebuild();
        const auto column = static_cast<int>(budget.below(CVTransactionColumns::CountWithSet));
        list.chooseSortColumn(CVTransactionColumns::identifier(column));
        list.refilter();
        EXPECT_EQ(list.transactions(), document.transactions());
        EXPECT_EQ(list.displayTransactions(), plainList(document, range, list.searchText(), list.sortContext()));
        EXPECT_EQ(list.totals().count, document.transactions().size());
        contents.grid().periods().goToDay(start);
        contents.reloadGrid();
        expectPlainGrid(document, contents.grid());
        contents.reloadReports();
        expectPlainReports(document, contents.reports());
    }
}

/// Two sets, one of which is the current one, and a transaction of a set that is gone.
class AllSetsList : public testing::Test {
protected:
    AllSetsList() {
        mBudget.set("Household", 1).set("holiday house", 2).currentSet(1).category("Food", 0);
        mBudget.transaction({.date = day(2014, 3, 7), .amount = 1, .payTo = "Market", .set = "Household"})
            .transaction({.date = day(2014, 3, 6), .amount = 2, .payTo = "Baker", .set = "holiday house"})
            .transaction({.date = day(2014, 3, 5), .amount = 3, .payTo = "Stray", .setID = 9})
            .transaction({.date = day(2014, 3, 4), .amount = 4, .payTo = "Tailor", .set = "Household"})
            .inOrder();
        mList.setRange({day(2014, 1, 1), day(2014, 12, 31)});
        show(CVShownSets::All);
    }

    void show(CVShownSets sets) {
        mList.setShownSets(sets);
        mList.collectTransactions();
        mList.rebuild();
    }

    void sortBy(const QString& column) {
        mList.chooseSortColumn(column);
        mList.doUserSort();
    }

    [[nodiscard]] QStringList payees() const {
        QStringList texts;
        for (const auto& transaction : mList.displayTransactions())
            texts.append(transaction->payTo());
        return texts;
    }

    BudgetBuilder mBudget;
    CVTransactionList mList{mBudget.document()};
};

TEST_F(AllSetsList, HoldsTheTransactionsOfEverySetAndOfNone) {
    EXPECT_EQ(payees(), (QStringList{"Market", "Baker", "Stray", "Tailor"}));
    show(CVShownSets::Current);
    EXPECT_EQ(payees(), (QStringList{"Market", "Tailor"}));
    EXPECT_EQ(mBudget.document().currentTransactionSet(), 1U);
}

TEST_F(AllSetsList, TheSetOfATransactionIsNamed) {
    using CVTransactionColumns::Set;
    const CVTransactionText text;
    EXPECT_EQ(CVTransactionText::title(Set), "Set");
    EXPECT_EQ(text.string(*mBudget.transactionAt(0), Set), "Household");
    EXPECT_EQ(text.string(*mBudget.transactionAt(1), Set), "holiday house");
    EXPECT_EQ(text.string(*mBudget.transactionAt(2), Set), "") << "not the last set, which stands in elsewhere";
    EXPECT_EQ(text.string(*makeTransaction({}), Set), "");
}

TEST_F(AllSetsList, IsSortedBySetWithoutRegardToCaseAndWithinASetInDocumentOrder) {
    sortBy("set");
    EXPECT_EQ(payees(), (QStringList{"Stray", "Baker", "Market", "Tailor"}));
    sortBy("set");
    EXPECT_EQ(payees(), (QStringList{"Market", "Tailor", "Baker", "Stray"}));
}

TEST_F(AllSetsList, TheOrderBySetIsNotStoredAndGoesWithTheListOfAllSets) {
    QBUserDefaults& defaults = mBudget.userDefaults();
    sortBy("amount");
    sortBy("set");
    EXPECT_EQ(mList.sortContext(), (CVTransactionSortContext{"set", true}));
    EXPECT_EQ(defaults.stringForKey(CVDefaultsKeys::kTransactionSortColumn), "amount");
    EXPECT_EQ(defaults.integerForKey(CVDefaultsKeys::kTransactionSortOrder), 0);
    show(CVShownSets::Current);
    EXPECT_EQ(mList.sortContext(), (CVTransactionSortContext{"amount", false}));
    show(CVShownSets::All);
    EXPECT_EQ(mList.sortContext(), (CVTransactionSortContext{"amount", false}));
    sortBy("set");
    sortBy("tofrom");
    EXPECT_EQ(mList.sortContext(), (CVTransactionSortContext{"tofrom", false})) << "the order turns round";
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market", "Stray", "Tailor"}));
}

TEST_F(AllSetsList, ASearchInAllTextFieldsFindsTheNameOfASetToo) {
    mList.setSearchText("HOLIDAY");
    mList.refilter();
    EXPECT_EQ(payees(), QStringList{"Baker"});
    show(CVShownSets::Current);
    EXPECT_EQ(payees(), QStringList()) << "one set is not searched for by its name";
    show(CVShownSets::All);
    mList.setSearchType(static_cast<int>(CVSearchKind::PaidTo));
    mList.refilter();
    EXPECT_EQ(payees(), QStringList()) << "the other kinds search what they say";
}

TEST(AllSetsDuplicates, AreThoseOfEachSetByItself) {
    const BudgetBuilder::Entry entry{
        .date = day(2014, 3, 7), .amount = 10, .payTo = "Shop", .xfor = "milk", .categoryID = 1};
    const auto of = [&entry](quint32 set) {
        BudgetBuilder::Entry other = entry;
        other.setID = set;
        return other;
    };
    BudgetBuilder budget;
    budget.transaction(of(2)).transaction(of(1)).transaction(of(2)).transaction(of(3)).transaction(of(1));
    EXPECT_THAT(CVFindDuplicatesOfEachSet(budget.document().transactions()),
                ElementsAre(budget.transactionAt(4), budget.transactionAt(2)))
        << "neighbours of one set are neighbours, whatever lies between them, and sets are not compared";
}

} // namespace
