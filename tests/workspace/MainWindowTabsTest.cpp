#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTableView>
#include <QToolTip>
#include <QWheelEvent>

namespace {

/// Returning to a tab computes only what has become out of date.
class MainWindowTabsTest : public MainWindowFixture {
protected:
    enum Tab { Transactions, Summary, Reports };

    void SetUp() override {
        mBudget.category("Food", 1).category("Fuel", 2).lastID(2);
        mBudget.transaction({.date = day(2014, 3, 7), .amount = 10, .payTo = "Market", .category = "Food"})
            .transaction({.date = day(2014, 3, 6), .amount = 20, .payTo = "Baker", .category = "Food"})
            .inOrder();
        open();
        // Each tab is shown, and so computed, once.
        show(Reports);
        show(Summary);
        show(Transactions);
    }

    void show(Tab tab) const { find<QTabWidget>("mMainTabView")->setCurrentIndex(tab); }

    /// The texts of a table, row by row.
    [[nodiscard]] QStringList texts(const char* table) const {
        const QAbstractItemModel& model = *find<QTableView>(table)->model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column)
                texts.append(model.index(row, column).data().toString());
        }
        return texts;
    }

    [[nodiscard]] QStringList totals() const {
        show(Summary);
        QStringList shown = texts("mExpenseCategoryTotalTable");
        show(Transactions);
        return shown;
    }

    /// The texts of the table of averages: category, total, and so on.
    [[nodiscard]] QStringList averages() const {
        show(Reports);
        QStringList shown = texts("mAveragesTable").mid(0, 2);
        show(Transactions);
        return shown;
    }

    void setCell(int row, Column column, const QVariant& value) const {
        QAbstractItemModel& model = *table().model();
        ASSERT_TRUE(model.setData(model.index(row, column), value));
    }
};

TEST_F(MainWindowTabsTest, ShowTheSameWhereNothingHasChanged) {
    EXPECT_EQ(totals(), QStringList{"$30.00"});
    EXPECT_EQ(averages(), (QStringList{"Food", "$30.00"}));
    EXPECT_EQ(totals(), QStringList{"$30.00"});
    EXPECT_EQ(averages(), (QStringList{"Food", "$30.00"}));
}

TEST_F(MainWindowTabsTest, ShowAnAmountThatWasEdited) {
    setCell(0, Column::Amount, 15.0);
    EXPECT_EQ(totals(), QStringList{"$35.00"});
    EXPECT_EQ(averages(), (QStringList{"Food", "$35.00"}));
}

TEST_F(MainWindowTabsTest, ShowACategoryThatWasChosen) {
    setCell(0, Column::Category, "Fuel");
    EXPECT_EQ(totals(), (QStringList{"$20.00", "$10.00"}));
    EXPECT_EQ(averages(), (QStringList{"Food", "$20.00"}));
}

TEST_F(MainWindowTabsTest, ShowADateThatWasEdited) {
    setCell(0, Column::Date, QVariant::fromValue(std::optional(day(2013, 1, 1))));
    EXPECT_EQ(totals(), QStringList{"$20.00"}) << "only one lies in this week";
    EXPECT_EQ(averages(), (QStringList{"Food", "$20.00"})) << "the reports' range grows with the next rebuild";
    mController->getStarted();
    EXPECT_EQ(averages(), (QStringList{"Food", "$30.00"}));
}

TEST_F(MainWindowTabsTest, ShowWhatWasRecorded) {
    fillIn("5", "Market", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(totals(), QStringList{"$35.00"});
    EXPECT_EQ(averages(), (QStringList{"Food", "$35.00"}));
}

TEST_F(MainWindowTabsTest, ShowWhatIsLeftAfterARemoval) {
    table().selectRow(0);
    mAlerts.answer({CVAlert::kDefault});
    mController->removeTransaction();
    EXPECT_EQ(totals(), QStringList{"$20.00"});
    EXPECT_EQ(averages(), (QStringList{"Food", "$20.00"}));
}

TEST_F(MainWindowTabsTest, ShowACategoryUnderItsNewName) {
    document().categories().front()->setCategoryName("Groceries");
    EXPECT_EQ(averages(), (QStringList{"Groceries", "$30.00"}));
    show(Summary);
    EXPECT_EQ(texts("mExpenseCategoryTable"), QStringList{"Groceries"});
}

TEST_F(MainWindowTabsTest, ShowUnusedCategoriesOnceThatIsWanted) {
    document().userDefaults().setInteger(CVDefaultsKeys::kShowUnusedCategories, 1);
    show(Summary);
    EXPECT_EQ(texts("mExpenseCategoryTable"), (QStringList{"Food", "Fuel"}));
}

TEST_F(MainWindowTabsTest, ShowWhatIsRecordedInFrontOfThem) {
    show(Reports);
    type("mExpenseDate", "3/6/14");
    fillIn("5", "Market", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(texts("mAveragesTable").mid(0, 2), (QStringList{"Food", "$35.00"}));
    EXPECT_EQ(textOf("mNumberOfTransactionsField2"), "3");
    EXPECT_EQ(textOf("mTotalNumberOfTransactionsField2"), "3");
    show(Summary);
    fillIn("7", "Market", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(texts("mExpenseCategoryTotalTable"), QStringList{"$42.00"});
}

TEST_F(MainWindowTabsTest, ShowTheirFiguresWhenTheWindowOpensOnThem) {
    // All transactions get one day, which is also the range before any range was set.
    setCell(1, Column::Date, QVariant::fromValue(std::optional(day(2014, 3, 7))));
    for (const Tab tab : {Summary, Reports, Transactions}) {
        document().userDefaults().setInteger(CVDefaultsKeys::kDisplayTab, tab);
        open();
        EXPECT_EQ(find<QTabWidget>("mMainTabView")->currentIndex(), tab);
        if (tab == Summary)
            EXPECT_EQ(texts("mExpenseCategoryTotalTable"), QStringList{"$30.00"});
        else if (tab == Reports)
            EXPECT_EQ(texts("mAveragesTable").mid(0, 2), (QStringList{"Food", "$30.00"}));
        else
            EXPECT_EQ(table().model()->rowCount(), 2);
    }
}

TEST_F(MainWindowTabsTest, StoredNumbersThatNoItemHasCountAsTheFirst) {
    for (const int number : {-1, 99}) {
        for (const char* const key : {CVDefaultsKeys::kDisplayTab, CVDefaultsKeys::kReportTab,
                                      CVDefaultsKeys::kTransactionPeriod, CVDefaultsKeys::kReportPeriod})
            document().userDefaults().setInteger(key, number);
        open();
        EXPECT_EQ(find<QTabWidget>("mMainTabView")->currentIndex(), 0);
        EXPECT_EQ(find<QTabWidget>("mReportTabView")->currentIndex(), 0);
        EXPECT_EQ(textOf("mSetTransactionDateRange"), "All");
        EXPECT_EQ(textOf("mSetReportDateRange"), "All");
        EXPECT_EQ(table().model()->rowCount(), 2);
    }
}

TEST_F(MainWindowTabsTest, ARowThatNoLongerMatchesStaysWhileCellsAreEdited) {
    find<QLineEdit>("mSearchField103")->setText("a");
    setCell(0, Column::ToFrom, "Shop");
    setCell(0, Column::Category, "Something new");
    EXPECT_EQ(column(Column::ToFrom), (QStringList{"Shop", "Baker"}));
    document().categories().front()->setCategoryName("Groceries");
    EXPECT_EQ(column(Column::ToFrom), QStringList{"Baker"}) << "a rename searches anew";
}

TEST_F(MainWindowTabsTest, AnEntryThatIsNotListedSaysWhy) {
    find<QLineEdit>("mSearchField103")->setText("bak");
    fillIn("5", "Market", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(QToolTip::text(), "Recorded, but not listed here: it does not match the search.");
    find<QLineEdit>("mSearchField103")->setText("");
    find<QComboBox>("mSetTransactionDateRange")->setCurrentIndex(7);
    emit find<QComboBox>("mSetTransactionDateRange")->activated(7);
    type("mExpenseDate", "1/6/14");
    fillIn("5", "Market", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(QToolTip::text(), "Recorded, but not listed here: its date is not in this range.");
    find<QLineEdit>("mSearchField103")->setText("mark");
    fillIn("5", "Market", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(QToolTip::text(), "Recorded, but not listed here: its date is not in this range.") << "the search fits";
}

TEST_F(MainWindowTabsTest, TheWheelChoosesNothingInABoxWithoutTheFocus) {
    for (const char* const name : {"mSetTransactionDateRange", "mTransactionSet", "mExpensePeriod"}) {
        auto* const box = find<QComboBox>(name);
        if (box->count() < 2)
            box->addItems({"One", "Two"});
        box->setCurrentIndex(0);
        const int before = box->currentIndex();
        QWheelEvent wheel(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(box, &wheel);
        EXPECT_EQ(box->currentIndex(), before) << name;
    }
}

TEST_F(MainWindowTabsTest, ASearchThatIsTypedOnFindsWhatWasEditedInBetween) {
    const auto search = [this](const QString& text) {
        find<QLineEdit>("mSearchField103")->setText(text);
        return column(Column::ToFrom);
    };
    EXPECT_EQ(search("a"), (QStringList{"Market", "Baker"}));
    EXPECT_EQ(search("ar"), QStringList{"Market"});
    document().transactions()[1]->setPayTo("Barber");
    EXPECT_EQ(search("arb"), QStringList{"Barber"});
    EXPECT_EQ(search(""), (QStringList{"Market", "Barber"}));
}

TEST_F(MainWindowTabsTest, TheTotalsFollowWhatIsListed) {
    EXPECT_EQ(textOf("mTotalAmountShownField"), "$30.00");
    find<QLineEdit>("mSearchField103")->setText("bak");
    EXPECT_EQ(textOf("mTotalAmountShownField"), "$20.00");
    EXPECT_EQ(textOf("mTotalAmountField"), "$30.00");
    setCell(0, Column::Amount, 7.25);
    EXPECT_EQ(textOf("mTotalAmountShownField"), "$7.25");
    EXPECT_EQ(textOf("mTotalAmountField"), "$17.25");
    find<QLineEdit>("mSearchField103")->setText("");
    EXPECT_EQ(textOf("mTotalAmountShownField"), "$17.25");
}

} // namespace
