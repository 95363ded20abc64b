#include "editors/CVTransactionWindowController.h"

#include "base/CVNotifications.h"
#include "base/QBMoney.h"
#include "editors/CVTransactionWindowModel.h"
#include "editors/EditorFixture.h"
#include "kit/DefaultLocale.h"
#include "widgets/CVAttentionColourOn.h"

#include <QLabel>
#include <QLineEdit>

#include <tuple>

namespace {

using CellColumn = CVTransactionWindowModel::Column;

class CVTransactionWindowControllerTest : public EditorFixture {
protected:
    CVTransactionWindowControllerTest() : EditorFixture("mTransactionTable") {
        mBudget.category("Food", 1, CVExpenseFrequency::kMonthly, 50).category("Fuel", 2).lastID(2);
    }

    void transaction(double amount, const QString& payTo = "Market", quint32 category = 1) {
        mBudget.transaction({.date = day(2014, 3, 6), .amount = amount, .payTo = payTo, .categoryID = category});
    }

    void open() { EditorFixture::open<CVTransactionWindowController>(document().transactions()); }

    [[nodiscard]] QString textOf(const char* name) const { return find<QLineEdit>(name)->text(); }
    [[nodiscard]] bool isFlagged(std::size_t row) const { return mBudget.transactionAt(row)->userFlag(); }
};

TEST_F(CVTransactionWindowControllerTest, ShowsTheTransactionsAndWhatTheyComeTo) {
    transaction(30, "Market");
    transaction(12.5, "Baker");
    open();
    EXPECT_EQ(window().windowTitle(), "Transaction Window");
    EXPECT_EQ(column(CellColumn::Date), (QStringList{"3/6/14", "3/6/14"}));
    EXPECT_EQ(column(CellColumn::Amount), (QStringList{"$30.00", "$12.50"}));
    EXPECT_EQ(column(CellColumn::PayTo), (QStringList{"Market", "Baker"}));
    EXPECT_EQ(textOf("mCategoryField"), "Food");
    EXPECT_EQ(textOf("mSpentField"), "$42.50");
    EXPECT_EQ(textOf("mPlannedField"), "$50.00");
    EXPECT_EQ(textOf("mDiffereceField"), "$7.50");
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVTransactionWindowControllerTest, ADifferenceIsRedWhereItReadsAsNegative) {
    transaction(50);
    for (const auto& [target, text, red] : {std::tuple{49.99, "-$0.01", true},
                                            {49.998, "$0.00", false},
                                            {50.0, "$0.00", false},
                                            {50.01, "$0.01", false}}) {
        document().categories().front()->setExpenseTarget(target);
        open();
        EXPECT_EQ(textOf("mDiffereceField"), text);
        const QColor colour = find<QLineEdit>("mDiffereceField")->palette().color(QPalette::Text);
        EXPECT_EQ(colour == CVAttentionColourOn(window().palette(), QPalette::Window), red) << target;
    }
}

TEST_F(CVTransactionWindowControllerTest, ThePlannedAmountSaysForWhichFrequencyItIsMeant) {
    struct Row {
        qint64 frequency;
        double target;
        const char* text;
    };
    for (const Row& row :
         {Row{CVExpenseFrequency::kMonthly, 50, "Planned (Monthly)"},
          Row{CVExpenseFrequency::kWeekly, 50, "Planned (Weekly)"},
          Row{CVExpenseFrequency::kBiMonthly, 60, "Planned (Bi-Monthly)"},
          Row{CVExpenseFrequency::kUnknown, 60, "Planned"}, Row{CVExpenseFrequency::kMonthly, 0, "Planned"}}) {
        document().categories().front()->setExpenseFrequency(row.frequency);
        document().categories().front()->setExpenseTarget(row.target);
        if (document().transactions().empty())
            transaction(10);
        open();
        EXPECT_EQ(find<QLineEdit>("mPlannedField")->accessibleName(), row.text);
        const auto labels = window().findChildren<QLabel*>();
        EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [&row](const QLabel* label) {
            return label->text() == QString(row.text) + ':';
        })) << row.text;
    }
}

TEST_F(CVTransactionWindowControllerTest, TheSumIsRoundedAfterEveryAddition) {
    // The exact sum 0.012 is rounded to one cent; three amounts of 0.004 that are rounded first give nothing.
    for (int i = 0; i < 3; ++i)
        transaction(0.004);
    ASSERT_EQ(RoundDoubleToTwoPlaces(0.004 * 3), 0.01);
    open();
    EXPECT_EQ(textOf("mSpentField"), "$0.00");
}

TEST_F(CVTransactionWindowControllerTest, SpendingAboveThePlanIsANegativeDifference) {
    transaction(80.25);
    open();
    EXPECT_EQ(textOf("mDiffereceField"), "-$30.25");
    const auto colourOf = [this](const char* name) { return find<QLineEdit>(name)->palette().color(QPalette::Text); };
    EXPECT_NE(colourOf("mDiffereceField"), colourOf("mSpentField"));
}

TEST_F(CVTransactionWindowControllerTest, ACellWithoutTransactionsShowsZeroesAndNoCategory) {
    open();
    for (const char* const field : {"mSpentField", "mPlannedField", "mDiffereceField"})
        EXPECT_EQ(textOf(field), "$0.00") << field;
    EXPECT_EQ(textOf("mCategoryField"), "");
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_NE(table().accessibleDescription(), "");
}

TEST_F(CVTransactionWindowControllerTest, TheCategoryIsThatOfTheLastTransaction) {
    transaction(10, "Market", 1);
    transaction(5, "Station", 2);
    open();
    EXPECT_EQ(textOf("mCategoryField"), "Fuel");
    EXPECT_EQ(textOf("mPlannedField"), "$0.00");
    EXPECT_EQ(textOf("mDiffereceField"), "-$15.00");
}

TEST_F(CVTransactionWindowControllerTest, AnUnknownCategoryHasNoPlanAndNoName) {
    transaction(10, "Market", 1);
    transaction(5, "Station", 77);
    open();
    EXPECT_EQ(textOf("mCategoryField"), "");
    EXPECT_EQ(textOf("mPlannedField"), "$0.00");
    EXPECT_EQ(textOf("mDiffereceField"), "-$15.00");
}

TEST_F(CVTransactionWindowControllerTest, AClickOrSpaceTurnsAFlagRoundAndSaves) {
    transaction(10);
    transaction(20);
    open();
    clickCell(1, CellColumn::UserFlag);
    EXPECT_TRUE(isFlagged(1));
    EXPECT_FALSE(isFlagged(0));
    EXPECT_EQ(cell(1, CellColumn::UserFlag).data(Qt::CheckStateRole), Qt::Checked);
    EXPECT_EQ(cell(1, CellColumn::UserFlag).data(Qt::AccessibleTextRole), "Yes");
    EXPECT_EQ(mSaver.count(), 1);
    press(Qt::Key_Space);
    EXPECT_FALSE(isFlagged(1));
    clickCell(0, CellColumn::PayTo);
    EXPECT_FALSE(isFlagged(0)) << "a click beside the flag only selects";
    press(Qt::Key_Space);
    EXPECT_TRUE(isFlagged(0)) << "Space counts for the row";
    EXPECT_EQ(mSaver.count(), 3);
}

TEST_F(CVTransactionWindowControllerTest, BothClicksOfADoubleClickTurnAFlagRound) {
    transaction(10);
    open();
    clickCell(0, CellColumn::UserFlag);
    const QPoint place = table().visualRect(cell(0, CellColumn::UserFlag)).center();
    EXPECT_TRUE(isFlagged(0));
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, place);
    EXPECT_FALSE(isFlagged(0));
    EXPECT_EQ(mSaver.count(), 2);
}

TEST_F(CVTransactionWindowControllerTest, TheValueThatIsSetCountsForNothing) {
    transaction(10);
    open();
    EXPECT_TRUE(table().model()->setData(cell(0, CellColumn::UserFlag), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_TRUE(isFlagged(0));
}

TEST_F(CVTransactionWindowControllerTest, NothingButTheFlagCanBeChanged) {
    transaction(10);
    open();
    for (const int column : {CellColumn::Date, CellColumn::Amount, CellColumn::PayTo}) {
        EXPECT_FALSE(table().model()->setData(cell(0, column), "1", Qt::EditRole)) << column;
        EXPECT_FALSE(table().model()->setData(cell(0, column), Qt::Checked, Qt::CheckStateRole)) << column;
        clickCell(0, column);
        press(Qt::Key_F2);
        press(Qt::Key_Return);
        EXPECT_TRUE(table().hasFocus()) << "an editor has opened";
    }
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVTransactionWindowControllerTest, OfABudgetThatIsOnlyLookedAtTheFlagStays) {
    mSaver.setReadOnly();
    transaction(10);
    open();
    clickCell(0, CellColumn::UserFlag);
    press(Qt::Key_Space);
    EXPECT_FALSE(table().model()->setData(cell(0, CellColumn::UserFlag), Qt::Checked, Qt::CheckStateRole));
    EXPECT_FALSE(isFlagged(0));
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVTransactionWindowControllerTest, DatesAndMoneyFollowAChangeOfTheLocale) {
    transaction(1234.5);
    open();
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    mBudget.notificationCenter().postNotification(CVNotifications::kMoneyFormatterChanged);
    EXPECT_EQ(column(CellColumn::Date), QStringList{"06.03.14"});
    EXPECT_EQ(column(CellColumn::Amount), QStringList{"€1.234,50"});
    EXPECT_EQ(textOf("mSpentField"), "€1.234,50");
    EXPECT_EQ(textOf("mPlannedField"), "€50,00");
    EXPECT_EQ(textOf("mDiffereceField"), "-€1.184,50");
}

TEST_F(CVTransactionWindowControllerTest, AMissingDateIsAnEmptyCell) {
    mBudget.transaction({.amount = 1, .categoryID = 1});
    open();
    EXPECT_EQ(column(CellColumn::Date), QStringList{""});
}

} // namespace
