#include "contents/CVVersionLines.h"

#include "differences/CVBudgetDifferences.h"
#include "kit/BudgetBuilder.h"
#include "kit/DefaultLocale.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

using LineColumn = CVVersionLines::Column;

/// A version and the present budget, with one of everything that can differ.
class CVVersionLinesTest : public testing::Test {
protected:
    CVVersionLinesTest() {
        mVersion.set("Checking", 1).set("Old", 2);
        mVersion.category("Food", 3, CVExpenseFrequency::kMonthly, 50).category("Gone", 5);
        mVersion.transaction({.date = day(2014, 3, 6), .amount = 30, .payTo = "Market", .category = "Food", .setID = 1})
            .transaction({.date = day(2014, 3, 7), .amount = 12, .payTo = "Baker", .category = "Food", .setID = 1});
        mPresent.set("Giro", 1);
        mPresent.category("Food", 3, CVExpenseFrequency::kWeekly, 60).category("Fuel", 6);
        mPresent.transaction({.date = day(2014, 3, 7), .amount = 21, .payTo = "Baker", .category = "Food", .setID = 1})
            .transaction({.date = day(2014, 3, 5),
                          .amount = 1234.5,
                          .payTo = "Station",
                          .category = "Fuel",
                          .setID = 1,
                          .taxFlag = true});
    }

    [[nodiscard]] CVVersionLines lines() {
        return CVVersionLines(std::make_shared<CVBudgetDifferences>(
            CVBudgetDifferences::between(mVersion.document(), mPresent.document(), &mVersion.document())));
    }

    /// The cells of a line that are not empty, changed ones as "before>after".
    [[nodiscard]] static QString shown(const CVVersionLines& lines, std::size_t line) {
        QStringList texts;
        for (int column = 0; column < CVVersionLines::ColumnCount; ++column) {
            const auto cell = lines.cell(line, column);
            if (cell.isChanged())
                texts.append(cell.before + '>' + cell.after);
            else if (!cell.after.isEmpty())
                texts.append(cell.after);
        }
        return texts.join('|');
    }

    /// The payees of the transactions among these lines, or what else the line is about.
    [[nodiscard]] static QStringList namesOf(const CVVersionLines& lines, const std::vector<std::size_t>& order) {
        QStringList names;
        for (const std::size_t line : order) {
            for (const int column : {LineColumn::ToFrom, LineColumn::Category, LineColumn::Set}) {
                if (const QString name = lines.cell(line, column).after; !name.isEmpty()) {
                    names.append(name);
                    break;
                }
            }
        }
        return names;
    }

    BudgetBuilder mVersion;
    BudgetBuilder mPresent;
};

TEST_F(CVVersionLinesTest, SayWhatWasRemovedAddedAndChanged) {
    const CVVersionLines shownLines = lines();
    QStringList texts;
    for (std::size_t line = 0; line < shownLines.size(); ++line)
        texts.append(shown(shownLines, line));
    EXPECT_EQ(texts, (QStringList{"Set renamed|Checking>Giro", "Set removed|Old",
                                  "Category changed|$50.00>$60.00|Plan, Monthly>Plan, Weekly|Food",
                                  "Category removed|$0.00|Plan, Weekly|Gone", "Category added|$0.00|Plan, Weekly|Fuel",
                                  "Changed|3/7/14|$12.00>$21.00|Baker|Food|Checking>Giro",
                                  "Removed|3/6/14|$30.00|Market|Food|Checking",
                                  "Added|3/5/14|$1,234.50|Station|Fuel|Giro|Yes"}));
    EXPECT_EQ(shownLines.count(CVVersionLines::Group::Removed), 3U);
    EXPECT_EQ(shownLines.count(CVVersionLines::Group::Added), 2U);
    EXPECT_EQ(shownLines.count(CVVersionLines::Group::Changed), 3U);
}

TEST_F(CVVersionLinesTest, AChangedFlagIsShownAlsoWhereItIsNotSet) {
    BudgetBuilder version;
    version.transaction({.amount = 1, .taxFlag = true, .userFlag = false});
    BudgetBuilder present;
    present.transaction({.amount = 1, .taxFlag = false, .userFlag = false});
    const CVVersionLines shownLines(std::make_shared<CVBudgetDifferences>(
        CVBudgetDifferences::between(version.document(), present.document(), nullptr)));
    ASSERT_EQ(shownLines.size(), 1U);
    EXPECT_EQ(shown(shownLines, 0), "Changed|$1.00|Yes>No");
}

TEST_F(CVVersionLinesTest, AreInTheFormatsOfTheUser) {
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    const CVVersionLines shownLines = lines();
    EXPECT_EQ(shownLines.cell(7, LineColumn::Amount).after, "€1.234,50");
    EXPECT_EQ(shownLines.cell(7, LineColumn::Date).after, "05.03.14");
}

TEST_F(CVVersionLinesTest, AreFoundByWhatTheySayNowAndByWhatTheySaid) {
    const CVVersionLines shownLines = lines();
    struct Row {
        const char* text;
        std::vector<std::size_t> found;
    };
    for (const Row& row : {Row{"", {0, 1, 2, 3, 4, 5, 6, 7}}, Row{"baker", {5}}, Row{"12.00", {5}}, Row{"21.00", {5}},
                           Row{"giro", {0, 5, 7}}, Row{"CHECKING", {0, 5, 6}}, Row{"removed", {1, 3, 6}},
                           Row{"3/5/14", {7}}, Row{"elsewhere", {}}}) {
        std::vector<std::size_t> found;
        for (std::size_t line = 0; line < shownLines.size(); ++line) {
            if (shownLines.matches(line, row.text))
                found.push_back(line);
        }
        EXPECT_EQ(found, row.found) << row.text;
    }
}

TEST_F(CVVersionLinesTest, AreSortedByAColumnWithEmptyCellsLast) {
    const CVVersionLines shownLines = lines();
    struct Row {
        int column;
        bool descending;
        QStringList order;
    };
    for (const Row& row : {
             Row{LineColumn::Date, false, {"Station", "Market", "Baker", "Giro", "Old", "Food", "Gone", "Fuel"}},
             Row{LineColumn::Date, true, {"Baker", "Market", "Station", "Giro", "Old", "Food", "Gone", "Fuel"}},
             Row{LineColumn::Amount, false, {"Gone", "Fuel", "Baker", "Market", "Food", "Station", "Giro", "Old"}},
             Row{LineColumn::Amount, true, {"Station", "Food", "Market", "Baker", "Gone", "Fuel", "Giro", "Old"}},
             Row{LineColumn::ToFrom, false, {"Baker", "Market", "Station", "Giro", "Old", "Food", "Gone", "Fuel"}},
         }) {
        std::vector<std::size_t> order(shownLines.size());
        std::iota(order.begin(), order.end(), 0U);
        shownLines.sort(order, row.column, row.descending);
        EXPECT_EQ(namesOf(shownLines, order), row.order) << row.column << row.descending;
    }
}

TEST_F(CVVersionLinesTest, GiveTheDifferencesBehindTheChosenOnes) {
    const CVBudgetDifferences some = lines().only({1, 3, 6});
    ASSERT_EQ(some.sets.size(), 1U);
    ASSERT_EQ(some.categories.size(), 1U);
    ASSERT_EQ(some.transactions.size(), 1U);
    EXPECT_EQ(some.sets[0].before->transactionSetName(), "Old");
    EXPECT_EQ(some.categories[0].before->categoryName(), "Gone");
    EXPECT_EQ(some.transactions[0].before->payTo(), "Market");
    EXPECT_EQ(some.setMatching.idAfter(1), 1U);
}

TEST_F(CVVersionLinesTest, AreNoneWithoutDifferences) {
    const CVVersionLines none(nullptr);
    EXPECT_EQ(none.size(), 0U);
    EXPECT_EQ(none.count(CVVersionLines::Group::Removed), 0U);
}

TEST_F(CVVersionLinesTest, OfAnotherFileSayWhatItWouldDoToTheBudget) {
    // The other file is what the budget is to become, and the present budget is the later of the two lists.
    const auto differences = std::make_shared<CVBudgetDifferences>(
        CVBudgetDifferences::between(mVersion.document(), mPresent.document(), &mPresent.document()));
    CVVersionLines::ChangedTwice changedTwice;
    changedTwice.insert(mVersion.transactionAt(0).get(), mPresent.transactionAt(0));
    const CVVersionLines shownLines(differences, CVComparedWith::Other, changedTwice);
    QStringList texts;
    for (std::size_t line = 0; line < shownLines.size(); ++line)
        texts.append(shown(shownLines, line));
    EXPECT_EQ(texts, (QStringList{"Set renamed there|Giro>Checking", "Set added there|Old",
                                  "Category changed there|$60.00>$50.00|Plan, Weekly>Plan, Monthly|Food",
                                  "Category added there|$0.00|Plan, Weekly|Gone",
                                  "Category removed there|$0.00|Plan, Weekly|Fuel",
                                  "Changed there|3/7/14|$21.00>$12.00|Baker|Food|Giro>Checking",
                                  "Changed on both sides|3/7/14>3/6/14|$21.00>$30.00|Baker>Market|Food|Giro>Checking",
                                  "Removed there|3/5/14|$1,234.50|Station|Fuel|Giro|Yes"}));
    using Group = CVVersionLines::Group;
    EXPECT_EQ(shownLines.count(Group::Added), 2U) << "what was changed on both sides was not added";
    EXPECT_EQ(shownLines.count(Group::Removed), 2U);
    EXPECT_EQ(shownLines.count(Group::Changed), 3U);
    EXPECT_EQ(shownLines.count(Group::ChangedOnBothSides), 1U);
    EXPECT_EQ(shownLines.group(6), Group::ChangedOnBothSides);
}

} // namespace
