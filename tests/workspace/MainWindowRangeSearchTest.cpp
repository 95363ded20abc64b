#include "base/CVDefaultsKeys.h"
#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>

namespace {

enum Preset { kAll, kThisYearAndLast, kLastYear, kThisYear, kLastMonth, kThisMonth, kLastWeek, kThisWeek };

class MainWindowRangeSearchTest : public MainWindowFixture {
protected:
    void SetUp() override {
        mBudget.category("Food", 1).category("Fuel", 2);
        mBudget
            .transaction(
                {.date = day(2014, 3, 6), .amount = 30, .payTo = "Market", .xfor = "bread", .category = "Food"})
            .transaction(
                {.date = day(2014, 2, 3), .amount = 10, .payTo = "Station", .category = "Fuel", .taxFlag = true})
            .transaction({.date = day(2013, 12, 2), .amount = 20, .payTo = "Bank", .xfor = "Loan", .category = "Fuel"});
        mBudget.inOrder();
        open();
    }

    [[nodiscard]] QStringList payees() const { return column(Column::ToFrom); }

    void pick(Preset preset) const {
        auto* const box = find<QComboBox>("mSetTransactionDateRange");
        box->setCurrentIndex(preset);
        emit box->activated(preset);
    }

    void pickKind(const QString& title) const {
        for (QAction* const action : find<QWidget>("mSearchField103")->findChild<QMenu*>()->actions()) {
            if (action->text() == title)
                action->trigger();
        }
    }
};

TEST_F(MainWindowRangeSearchTest, APresetFillsTheDatesListsItsTransactionsAndIsRemembered) {
    EXPECT_EQ(textOf("mTransactionStartDate"), "12/2/13");
    EXPECT_EQ(textOf("mTransactionEndDate"), "3/6/14");
    pick(kLastMonth);
    EXPECT_EQ(textOf("mTransactionStartDate"), "2/1/14");
    EXPECT_EQ(textOf("mTransactionEndDate"), "2/28/14");
    EXPECT_EQ(payees(), QStringList{"Station"});
    EXPECT_EQ(textOf("mNumberOfTransactionsField1"), "1");
    EXPECT_EQ(textOf("mTotalNumberOfTransactionsField1"), "3");
    EXPECT_EQ(textOf("mTotalAmountShownField"), "$10.00");
    EXPECT_EQ(textOf("mTotalAmountField"), "$60.00");
    EXPECT_EQ(mBudget.userDefaults().integerForKey(CVDefaultsKeys::kTransactionPeriod), kLastMonth);
    EXPECT_EQ(mSaver.count(), 0) << "what is shown is not part of the budget";
}

TEST_F(MainWindowRangeSearchTest, AStartBeforeTheFirstTransactionSnapsToIt) {
    type("mTransactionStartDate", "1/1/12");
    press(Qt::Key_Return);
    EXPECT_EQ(textOf("mTransactionStartDate"), "12/2/13");
    type("mTransactionStartDate", "2/3/14");
    press(Qt::Key_Return);
    EXPECT_EQ(payees(), (QStringList{"Market", "Station"}));
    EXPECT_EQ(mBudget.document().transactions().size(), 3U) << "Return in a range records nothing";
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowRangeSearchTest, AnEndAfterTodaySnapsToTodayUnlessATransactionLiesLater) {
    type("mTransactionEndDate", "12/31/14");
    press(Qt::Key_Return);
    EXPECT_EQ(textOf("mTransactionEndDate"), "3/7/14");
    document().insertTransaction(makeTransaction({.date = day(2014, 8, 20), .payTo = "later"}));
    mController->getStarted();
    type("mTransactionEndDate", "12/31/14");
    press(Qt::Key_Return);
    EXPECT_EQ(textOf("mTransactionEndDate"), "8/20/14");
    type("mTransactionEndDate", "2/28/14");
    press(Qt::Key_Tab);
    EXPECT_EQ(payees(), (QStringList{"Station", "Bank"}));
}

TEST_F(MainWindowRangeSearchTest, EnteringOneEndLeavesTheOtherAsItsPresetHasIt) {
    pick(kThisWeek);
    EXPECT_EQ(textOf("mTransactionEndDate"), "3/8/14") << "this end is not held back to today";
    type("mTransactionStartDate", "3/3/14");
    press(Qt::Key_Return);
    EXPECT_EQ(textOf("mTransactionStartDate"), "3/3/14");
    EXPECT_EQ(textOf("mTransactionEndDate"), "3/8/14");
}

TEST_F(MainWindowRangeSearchTest, TypingTheSameDayAgainListsAnew) {
    pick(kLastMonth);
    document().transactions().back()->setEffectiveDate(day(2014, 2, 20));
    EXPECT_EQ(payees(), QStringList{"Station"});
    type("mTransactionStartDate", "2/1/14");
    press(Qt::Key_Return);
    EXPECT_EQ(payees(), (QStringList{"Bank", "Station"}));
}

TEST_F(MainWindowRangeSearchTest, TheListFollowsTheSearchWithEveryKey) {
    EXPECT_EQ(find<QLineEdit>("mSearchField103")->placeholderText(), "All Text Fields");
    focus("mSearchField103");
    type("b");
    EXPECT_EQ(payees(), (QStringList{"Market", "Bank"}));
    type("a");
    EXPECT_EQ(payees(), QStringList{"Bank"});
    EXPECT_EQ(textOf("mTotalAmountShownField"), "$20.00");
    press(Qt::Key_Escape);
    EXPECT_EQ(payees().size(), 3);
}

TEST_F(MainWindowRangeSearchTest, TheKindOfTheSearchIsPickedFromItsMenuAndShownAsPlaceholder) {
    type("mSearchField103", "yes");
    EXPECT_TRUE(payees().isEmpty());
    pickKind("Tax");
    EXPECT_EQ(payees(), QStringList{"Station"});
    EXPECT_EQ(find<QLineEdit>("mSearchField103")->placeholderText(), "Tax");
}

TEST_F(MainWindowRangeSearchTest, TheMenuHoldsTheNineKindsInTheirOrder) {
    const auto* const menu = find<QWidget>("mSearchField103")->findChild<QMenu*>();
    EXPECT_EQ(menu->title(), "Search Menu");
    QStringList titles;
    QStringList checked;
    for (const QAction* const action : menu->actions()) {
        titles.append(action->text());
        if (action->isChecked())
            checked.append(action->text());
    }
    EXPECT_EQ(titles, (QStringList{"All Text Fields", "Paid To", "For", "Category", "Tax", "User Flag",
                                   "Amount Greater Than", "Amount Equal To", "Amount Less Than"}));
    EXPECT_EQ(checked, QStringList{"All Text Fields"});
}

TEST_F(MainWindowRangeSearchTest, ASearchThatFindsNothingOffersToBeCleared) {
    auto* const button = find<QPushButton>("mClearSearchButton");
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->isVisible());
    type("mSearchField103", "nothing like it");
    EXPECT_TRUE(button->isVisible());
    button->click();
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(payees().size(), 3);
    EXPECT_EQ(textOf("mSearchField103"), "");
}

TEST_F(MainWindowRangeSearchTest, FindLeadsToTheSearchFromWherever) {
    focus("mExpenseAmountField");
    press(Qt::Key_2, Qt::ControlModifier);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "mSearchField103");
    type("loan");
    EXPECT_EQ(payees(), QStringList{"Bank"});
}

} // namespace
