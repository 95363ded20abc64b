#include "workspace/MainWindowFixture.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

namespace {

/// The accessible objects of the main window.
class MainWindowAccessibilityTest : public MainWindowFixture {
protected:
    void SetUp() override {
        mBudget.category("Food", 1).category("Fuel", 2).lastID(2);
        mBudget.transaction({.date = day(2014, 3, 6), .amount = 30, .payTo = "Market", .category = "Food"})
            .transaction(
                {.date = day(2014, 3, 3), .amount = 10, .category = "Fuel", .taxFlag = true, .userFlag = true});
        mBudget.inOrder();
        open();
    }

    [[nodiscard]] static QAccessibleInterface& describe(QObject* object) {
        return *QAccessible::queryAccessibleInterface(object);
    }

    [[nodiscard]] static QString nameOf(QObject* object) { return describe(object).text(QAccessible::Name); }

    [[nodiscard]] static QStringList rowHeaders(QTableView& table) {
        QStringList names;
        for (int row = 0; row < table.model()->rowCount(); ++row)
            names.append(describe(&table).tableInterface()->rowDescription(row));
        return names;
    }
};

TEST_F(MainWindowAccessibilityTest, TheTextsOfBoxesAndTheBarsOfTabsAreNamed) {
    EXPECT_EQ(nameOf(find<QComboBox>("mExpenseToFromComboBox")->lineEdit()), "Paid To/From");
    EXPECT_EQ(nameOf(find<QComboBox>("mExpenseCategoryComboBox")->lineEdit()), "Category");
    for (const auto* const tabs : window().findChildren<QTabWidget*>()) {
        EXPECT_NE(tabs->accessibleName(), "") << tabs->objectName().toStdString();
        // A tab bar without a name gets the name of its current tab.
        EXPECT_EQ(tabs->tabBar()->accessibleName(), tabs->accessibleName());
    }
    table().setCurrentIndex(table().model()->index(0, Column::Category));
    table().edit(table().currentIndex());
    EXPECT_EQ(nameOf(table().findChild<QLineEdit*>()), "Category");
}

TEST_F(MainWindowAccessibilityTest, TaxAndFlagAreBoxesThatAreCheckedOrNot) {
    for (const Column column : {Column::Tax, Column::UserFlag}) {
        for (const int row : {0, 1}) {
            const QAccessible::State state = describe(&table()).tableInterface()->cellAt(row, column)->state();
            EXPECT_TRUE(state.checkable);
            EXPECT_EQ(state.checked, row == 1);
        }
    }
    EXPECT_FALSE(describe(&table()).tableInterface()->cellAt(0, Column::ToFrom)->state().checkable);
}

TEST_F(MainWindowAccessibilityTest, ARowOfTheGridAndTheReportsIsCalledByItsCategory) {
    find<QTabWidget>("mMainTabView")->setCurrentIndex(1);
    find<QTabWidget>("mMainTabView")->setCurrentIndex(2);
    int tables = 0;
    for (auto* const figures : window().findChildren<QTableView*>()) {
        if (figures == &table() || figures->model()->rowCount() == 0)
            continue;
        ++tables;
        const QStringList expected =
            figures->model()->rowCount() == 1 ? QStringList{"Total"} : QStringList{"Food", "Fuel"};
        EXPECT_EQ(rowHeaders(*figures), expected) << figures->accessibleName().toStdString();
    }
    EXPECT_GE(tables, 4);
}

TEST_F(MainWindowAccessibilityTest, ClearSearchIsMetBesideTheTable) {
    type("mSearchField103", "nothing like it");
    const QAccessibleInterface& page = *describe(&table()).parent();
    QPushButton* button = nullptr;
    for (int child = 0; child < page.childCount(); ++child) {
        if (page.child(child)->text(QAccessible::Name) == "Clear Search")
            button = qobject_cast<QPushButton*>(page.child(child)->object());
    }
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(button->isVisible());
    EXPECT_TRUE(table().geometry().contains(button->geometry()));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(textOf("mSearchField103"), "");
    EXPECT_FALSE(button->isVisible());
}

} // namespace
