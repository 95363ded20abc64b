#include "base/CVDefaultsKeys.h"
#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QLabel>

namespace {

/// The Market was paid for groceries each time, the Station for different things.
class MainWindowProposalsTest : public MainWindowFixture {
protected:
    MainWindowProposalsTest() {
        mBudget.category("Car", 1).category("Groceries", 2).category("Travel", 3).lastID(3);
        mBudget.userDefaults().setInteger(CVDefaultsKeys::kNumberOfItems, 10);
        mBudget.userDefaults().setBool(CVDefaultsKeys::kClearFields, true);
        for (int i = 1; i <= 4; ++i) {
            mBudget.transaction({.date = day(2014, 2, i),
                                 .amount = 5,
                                 .payTo = "Market",
                                 .xfor = "weekly shop",
                                 .category = "Groceries"});
            mBudget.transaction({.date = day(2014, 2, i),
                                 .amount = 5,
                                 .payTo = "Garage",
                                 .xfor = QString::number(i),
                                 .category = "Car"});
        }
        mBudget.inOrder();
    }

    void SetUp() override { open(); }
};

TEST_F(MainWindowProposalsTest, AKnownPayeeProposesItsUsualCategoryAndPurpose) {
    type("mExpenseToFromComboBox", "mar");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Market");
    EXPECT_EQ(textOf("mForField"), "weekly shop");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Groceries");
    EXPECT_EQ(find<QLineEdit>("mForField")->selectedText(), "weekly shop");
}

TEST_F(MainWindowProposalsTest, APurposeThatDiffersEachTimeIsNotProposed) {
    type("mExpenseToFromComboBox", "gar");
    EXPECT_EQ(textOf("mForField"), "");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Car");
}

TEST_F(MainWindowProposalsTest, AnUnknownPayeeProposesNothingAndTakesTheProposalBack) {
    type("mExpenseToFromComboBox", "mar");
    type("x");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "marx");
    EXPECT_EQ(textOf("mForField"), "");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "");
}

TEST_F(MainWindowProposalsTest, APayeeThatIsOnlyLikeAKnownOneProposesNothing) {
    type("mExpenseToFromComboBox", "Markets");
    EXPECT_EQ(textOf("mExpenseToFromComboBox"), "Markets");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "");
}

TEST_F(MainWindowProposalsTest, TheCaseOfThePayeeDoesNotMatter) {
    mBudget.userDefaults().setInteger(CVDefaultsKeys::kNumberOfItems, 0);
    mController->getStarted();
    type("mExpenseToFromComboBox", "MARKET");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Groceries");
}

TEST_F(MainWindowProposalsTest, AmountAndPayeeAreEnoughToRecord) {
    type("mExpenseAmountField", "7");
    press(Qt::Key_Tab);
    type("mar");
    press(Qt::Key_Return);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    ASSERT_EQ(document().transactions().size(), 9U);
    const CVTransaction& recorded = *document().transactions().front();
    EXPECT_EQ(recorded.amount(), 7);
    EXPECT_EQ(recorded.payTo(), "Market");
    EXPECT_EQ(recorded.xfor(), "weekly shop");
    EXPECT_EQ(recorded.categoryName(), "Groceries");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "") << "cleared as the preferences say, and nothing is proposed";
}

TEST_F(MainWindowProposalsTest, WhatStandsInTheFieldsIsRecorded) {
    type("mExpenseCategoryComboBox", "tra");
    type("mExpenseAmountField", "7");
    press(Qt::Key_Tab);
    type("mar");
    press(Qt::Key_Tab);
    type("gift");
    press(Qt::Key_Return);
    ASSERT_EQ(document().transactions().size(), 9U);
    EXPECT_EQ(document().transactions().front()->categoryName(), "Travel");
    EXPECT_EQ(document().transactions().front()->xfor(), "gift");
}

TEST_F(MainWindowProposalsTest, ARefusedCategoryIsAskedForAsEver) {
    type("mExpenseAmountField", "7");
    type("mExpenseToFromComboBox", "mar");
    focus("mExpenseCategoryComboBox");
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].message, "You must select a category");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "");
}

TEST_F(MainWindowProposalsTest, WhatWasJustRecordedIsRemembered) {
    fillIn("1", "Ferry", "Travel");
    press(Qt::Key_Return);
    ASSERT_EQ(textOf("mExpenseToFromComboBox"), "");
    type("mExpenseToFromComboBox", "fer");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Travel");
}

TEST_F(MainWindowProposalsTest, ACategoryThatIsRenamedOrChangedInTheListIsRememberedSo) {
    type("mExpenseToFromComboBox", "gar");
    ASSERT_EQ(textOf("mExpenseCategoryComboBox"), "Car");
    mBudget.categoryNamed("Car")->setCategoryName("Boat");
    type("mExpenseToFromComboBox", "gar");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Boat");
    for (int row = 0; row < table().model()->rowCount(); ++row)
        table().model()->setData(table().model()->index(row, Column::Category), "Travel");
    type("mExpenseToFromComboBox", "gar");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Travel");
}

TEST_F(MainWindowProposalsTest, AfterRecordingWhatStaysInTheFieldsStaysForTheNextPayeeToo) {
    mBudget.userDefaults().setBool(CVDefaultsKeys::kClearFields, false);
    fillIn("1", "mar", "tra");
    press(Qt::Key_Return);
    type("mExpenseToFromComboBox", "gar");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Travel");
}

TEST_F(MainWindowProposalsTest, AfterRecordingAProposalThatStaysIsReplacedForTheNextPayee) {
    mBudget.userDefaults().setBool(CVDefaultsKeys::kClearFields, false);
    type("mExpenseAmountField", "7");
    press(Qt::Key_Tab);
    type("mar");
    press(Qt::Key_Return);
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Groceries");
    type("mExpenseToFromComboBox", "gar");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Car");
    EXPECT_EQ(textOf("mForField"), "");
}

TEST_F(MainWindowProposalsTest, TheNoteOnANewCategoryGoesOnceItIsRecorded) {
    mBudget.userDefaults().setBool(CVDefaultsKeys::kClearFields, false);
    fillIn("1", "Market", "Boat");
    EXPECT_EQ(find<QLabel>("mNewCategoryNote")->text(), "new category");
    press(Qt::Key_Return);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Boat");
    EXPECT_EQ(find<QLabel>("mNewCategoryNote")->text(), "");
}

TEST_F(MainWindowProposalsTest, InALargeBudgetTheProposalFollowsAsSoonAsItIsKnown) {
    for (int i = 0; i < 6'000; ++i)
        mBudget.transaction({.date = day(2013, 1, 1), .amount = 1, .payTo = "Ferry", .category = "Travel"});
    mBudget.inOrder();
    mController->getStarted();
    type("mExpenseToFromComboBox", "Ferry");
    EXPECT_TRUE(QTest::qWaitFor([this] { return textOf("mExpenseCategoryComboBox") == "Travel"; }));
    type("mExpenseToFromComboBox", "mar");
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Groceries") << "known by now";
}

TEST_F(MainWindowProposalsTest, WhatChangesWhileTheMemoryOfALargeBudgetIsMadeIsRemembered) {
    for (int i = 0; i < 6'000; ++i)
        mBudget.transaction({.date = day(2013, 1, 1), .amount = 1, .payTo = "Ferry", .category = "Travel"});
    mBudget.inOrder();
    mController->getStarted();
    type("mExpenseToFromComboBox", "Ferry");
    mBudget.categoryNamed("Travel")->setCategoryName("Cruise");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !textOf("mExpenseCategoryComboBox").isEmpty(); }));
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "Cruise");
}

TEST_F(MainWindowProposalsTest, AProposalThatComesTooLateForItsPayeeIsNotShown) {
    for (int i = 0; i < 6'000; ++i)
        mBudget.transaction({.date = day(2013, 1, 1), .amount = 1, .payTo = "Ferry", .category = "Travel"});
    mBudget.inOrder();
    mController->getStarted();
    fillIn("1", "Ferry", "Car");
    press(Qt::Key_Return);
    ASSERT_EQ(textOf("mExpenseToFromComboBox"), "");
    QTest::qWait(200);
    EXPECT_EQ(textOf("mExpenseCategoryComboBox"), "");
    EXPECT_EQ(textOf("mForField"), "");
}

} // namespace
