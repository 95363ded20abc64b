#include "editors/CVCategoryEditController.h"

#include "base/CVNotifications.h"
#include "editors/CVCategoryEditModel.h"
#include "editors/EditorFixture.h"

#include <QLineEdit>

namespace {

using Column = CVCategoryEditModel::Column;

const QString kCheckMark(QChar(0x2714));

class CVCategoryEditControllerTest : public EditorFixture {
protected:
    /// "Fuel" is used in the current set, "Food" only in the other set, "Rent" and "Zoo" in none.
    CVCategoryEditControllerTest() : EditorFixture("mCategoryEditTable") {
        mBudget.set("Checking", 10).set("Savings", 11).currentSet(10);
        mBudget.category("Food", 1).category("Fuel", 2).category("Rent", 3).category("Zoo", 4).lastID(11);
        mBudget.transaction({.date = day(2014, 3, 6), .amount = 30, .category = "Fuel", .set = "Checking"})
            .transaction({.date = day(2014, 3, 3), .amount = 10, .category = "Food", .set = "Savings"})
            .inOrder();
    }

    CVCategoryEditController& open() { return EditorFixture::open<CVCategoryEditController>(mAlerts); }

    [[nodiscard]] bool canDelete() const { return find<QPushButton>("mRemoveCategoryButton")->isEnabled(); }
    [[nodiscard]] std::vector<int> selectedRows() const { return table().selectedRows(); }
};

TEST_F(CVCategoryEditControllerTest, ShowsTheCategoriesInTheDocumentsOrder) {
    open();
    EXPECT_EQ(window().windowTitle(), "Category Editor");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Rent", "Zoo"}));
    EXPECT_TRUE(table().hasFocus());
    EXPECT_FALSE(canDelete());
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(cell(row, Column::Delete).data(Qt::CheckStateRole), Qt::Unchecked);
        EXPECT_EQ(cell(row, Column::Delete).data().toString(), "");
    }
    clickCell(2, Column::Delete);
    EXPECT_EQ(cell(2, Column::Delete).data(Qt::CheckStateRole), Qt::Unchecked) << "the box is given no value";
    EXPECT_EQ(selectedRows(), std::vector{2});
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVCategoryEditControllerTest, ACategoryThatOnlyAnotherSetUsesIsInUse) {
    open();
    EXPECT_EQ(column(Column::InUse), (QStringList{kCheckMark, kCheckMark, "", ""}));
}

TEST_F(CVCategoryEditControllerTest, WhatIsInUseIsFoundOncePerRebuildAndNotForEveryCell) {
    auto& controller = open();
    mBudget.transactionAt(0)->setCategoryID(3);
    EXPECT_EQ(column(Column::InUse), (QStringList{kCheckMark, kCheckMark, "", ""}));
    controller.addCategory();
    EXPECT_EQ(column(Column::InUse), (QStringList{kCheckMark, "", "", kCheckMark, ""}));
}

TEST_F(CVCategoryEditControllerTest, DeleteCanBePressedOnlyOnACategoryThatIsNotInUse) {
    open();
    clickCell(0, Column::Category);
    EXPECT_FALSE(canDelete());
    EXPECT_NE(remark(), "") << "the user wonders why";
    clickCell(2, Column::Category);
    EXPECT_TRUE(canDelete());
    EXPECT_EQ(remark(), "");
    press(Qt::Key_Up);
    EXPECT_FALSE(canDelete()) << "the arrow keys count as clicks do";
    press(Qt::Key_Down);
    EXPECT_TRUE(canDelete());
    clickCell(2, Column::Category, Qt::ControlModifier);
    EXPECT_FALSE(canDelete()) << "nothing is selected any more";
}

TEST_F(CVCategoryEditControllerTest, ARowThatTheCursorGoesToWithoutSelectingItGivesNoLeaveToDelete) {
    open();
    EXPECT_EQ(remark(), "") << "no row is selected yet";
    clickCell(1, Column::Category);
    press(Qt::Key_Down, Qt::ControlModifier);
    ASSERT_EQ(table().currentIndex().row(), 2);
    ASSERT_EQ(selectedRows(), std::vector{1});
    EXPECT_FALSE(canDelete());
    press(Qt::Key_Delete);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVCategoryEditControllerTest, CopyTakesTheSelectedRowsAsText) {
    open();
    clickCell(0, Column::Category);
    clickCell(2, Column::Category, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Food\tYes\t\nRent\tNo\t\n");
}

TEST_F(CVCategoryEditControllerTest, EnterOfTheKeypadEditsAsReturnDoes) {
    open();
    clickCell(2, Column::Category);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    type("Rental");
    commit();
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Rental", "Zoo"}));
}

TEST_F(CVCategoryEditControllerTest, ASelectionThatIsExtendedToAFreeCategoryTakesThoseInUseAlong) {
    open();
    clickCell(2, Column::Category);
    clickCell(0, Column::Category, Qt::ShiftModifier);
    EXPECT_FALSE(canDelete()) << "the row clicked last is in use";
    clickCell(0, Column::Category);
    clickCell(2, Column::Category, Qt::ShiftModifier);
    EXPECT_TRUE(canDelete());
    clickButton("Delete");
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Are you sure you want to delete the 3 selected categories?");
    EXPECT_EQ(column(Column::Category), QStringList{"Zoo"});
    EXPECT_EQ(document().countOfCategories(), 1U);
    EXPECT_EQ(document().transactions().size(), 2U);
    EXPECT_TRUE(mBudget.transactionAt(0)->categoryName().isNull());
    EXPECT_EQ(mNotifications.count(CVNotifications::kCategoryAddedRemoved), 3);
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(CVCategoryEditControllerTest, DeletingAsksAndThenSavesOnceAndLeavesNothingSelected) {
    open();
    clickCell(2, Column::Category);
    clickButton("Delete");
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const CVAlert& alert = mAlerts.shown()[0];
    EXPECT_EQ(alert.title, "Are you sure you want to delete the 'Rent' category?");
    EXPECT_EQ(alert.message, "You can't undo this action.");
    EXPECT_EQ(alert.defaultButton, "Delete");
    EXPECT_EQ(alert.alternateButton, "Cancel");
    EXPECT_EQ(alert.otherButton, "");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Zoo"}));
    EXPECT_TRUE(selectedRows().empty());
    EXPECT_FALSE(canDelete());
    EXPECT_EQ(mSaver.count(), 1);
    clickCell(2, Column::Category);
    EXPECT_TRUE(canDelete()) << "a click on the row in its place counts";
}

TEST_F(CVCategoryEditControllerTest, CancelledOrWithoutASelectionDeletingChangesNothing) {
    auto& controller = open();
    controller.removeCategory();
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    mAlerts.answer({CVAlert::kAlternate});
    clickCell(2, Column::Category);
    press(Qt::Key_Delete);
    EXPECT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(document().countOfCategories(), 4U);
    EXPECT_EQ(selectedRows(), std::vector{2});
    EXPECT_TRUE(canDelete());
    EXPECT_EQ(mNotifications.total(), 0);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVCategoryEditControllerTest, ARenamedCategoryMovesToItsPlaceSelectedAndVisible) {
    for (quint32 id = 20; id < 90; ++id)
        mBudget.category(QStringLiteral("Middle %1").arg(id), id);
    document().sortCategories();
    open();
    ASSERT_FALSE(isVisible(73));
    const auto rent = mBudget.categoryNamed("Rent");
    const int row = static_cast<int>(column(Column::Category).indexOf("Rent"));
    const QPersistentModelIndex place(cell(row, Column::InUse));
    rename(row, "apples");
    EXPECT_EQ(place, cell(0, Column::InUse));
    EXPECT_EQ(rent->categoryName(), "apples");
    EXPECT_EQ(column(Column::Category).constFirst(), "apples") << "without regard to case";
    EXPECT_EQ(document().categories().front(), rent);
    EXPECT_EQ(selectedRows(), std::vector{0});
    EXPECT_EQ(table().currentIndex().row(), 0);
    EXPECT_TRUE(isVisible(0));
    EXPECT_TRUE(canDelete());
    EXPECT_EQ(mSaver.count(), 1);
    rename(0, "zz");
    EXPECT_EQ(selectedRows(), std::vector{73});
    EXPECT_TRUE(isVisible(73));
}

TEST_F(CVCategoryEditControllerTest, ANameThatIsNoNewOneIsNeitherSavedNorAnnounced) {
    open();
    rename(2, "Rent");
    rename(2, QStringLiteral("Re\u0001nt"));
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_EQ(mNotifications.total(), 0);
    rename(2, "rent");
    EXPECT_EQ(mSaver.count(), 1) << "case makes another name";
}

TEST_F(CVCategoryEditControllerTest, AnEmptyNameOrOneThatIsTakenButForItsCaseIsAcceptedWithARemark) {
    struct Case {
        QString name;
        QString remark;
    };
    const Case cases[] = {{"zOO", "Another category has this name too."},
                          {"", "This category has no name."},
                          {" ", "This category has no name."},
                          {"Rental", ""}};
    open();
    const auto rent = mBudget.categoryNamed("Rent");
    for (const auto& [name, expected] : cases) {
        const auto& categories = document().categories();
        rename(static_cast<int>(std::find(categories.begin(), categories.end(), rent) - categories.begin()), name);
        EXPECT_EQ(rent->categoryName(), name);
        EXPECT_EQ(remark(), expected) << name.toStdString();
        EXPECT_EQ(document().countOfCategories(), 4U);
    }
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVCategoryEditControllerTest, ATakenNameOffersToMergeAndSaysHowManyTransactionsAndWhichPlan) {
    mBudget.categoryNamed("Food")->setExpenseTarget(50);
    mBudget.categoryNamed("Fuel")->setExpenseTarget(20);
    mBudget.transaction({.date = day(2014, 3, 4), .amount = 1, .category = "Food", .set = "Checking"}).inOrder();
    open();
    rename(1, "Food");
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const CVAlert& alert = mAlerts.shown()[0];
    EXPECT_EQ(alert.title, "Merge “Fuel” into “Food”?");
    EXPECT_EQ(alert.message, "There is a category “Food” already, with 2 transactions. The 1 transaction of “Fuel” "
                             "gets the category “Food”, and “Fuel” goes. The plan of “Food” stays ($50.00 Weekly); "
                             "that of “Fuel” goes ($20.00 Weekly). You can't undo this action.");
    EXPECT_EQ(alert.defaultButton, "Merge");
    EXPECT_EQ(alert.alternateButton, "Cancel");
    EXPECT_EQ(alert.otherButton, "Keep Both");
    EXPECT_EQ(alert.escapeAnswer, CVAlert::kAlternate);
}

TEST_F(CVCategoryEditControllerTest, MergingMovesTheTransactionsSavesOnceAndSelectsTheOneThatStays) {
    open();
    rename(1, "Food");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Rent", "Zoo"}));
    EXPECT_EQ(column(Column::InUse), (QStringList{kCheckMark, "", ""}));
    for (const auto& transaction : document().transactions())
        EXPECT_EQ(transaction->categoryName(), "Food");
    EXPECT_EQ(selectedRows(), std::vector{0});
    EXPECT_FALSE(canDelete());
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mNotifications.count(CVNotifications::kCategoryAddedRemoved), 1);
    EXPECT_EQ(mNotifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(document().takeAskedVersion(), CVVersionReason::Deletion);
}

TEST_F(CVCategoryEditControllerTest, CancelledMergingLeavesAllAsItWas) {
    mAlerts.answer({CVAlert::kAlternate});
    open();
    rename(1, "Food");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Rent", "Zoo"}));
    EXPECT_EQ(mBudget.transactionAt(0)->categoryName(), "Fuel");
    EXPECT_EQ(selectedRows(), std::vector{1});
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_EQ(mNotifications.total(), 0);
    EXPECT_FALSE(document().takeAskedVersion());
}

TEST_F(CVCategoryEditControllerTest, BothCategoriesCanBeKeptUnderOneName) {
    mAlerts.answer({CVAlert::kOther});
    open();
    rename(2, "Zoo");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Zoo", "Zoo"}));
    EXPECT_EQ(remark(), "Another category has this name too.");
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(CVCategoryEditControllerTest, ANewCategoryThatGetsATakenNameIsMergedToo) {
    open();
    clickButton("Add");
    type("Fuel");
    commit();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_TRUE(mAlerts.shown()[0].message.contains("“New Category”, which no transaction has, goes."));
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Rent", "Zoo"}));
    EXPECT_EQ(mBudget.transactionAt(0)->categoryName(), "Fuel");
}

TEST_F(CVCategoryEditControllerTest, ClosingTheWindowAsksAboutTheNameThatIsBeingTyped) {
    open();
    clickCell(1, Column::Category);
    startRenaming("Food");
    window().reject();
    EXPECT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(document().countOfCategories(), 3U);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(CVCategoryEditControllerTest, DeletingAsksAboutATakenNameAndThenDeletesNothing) {
    auto& controller = open();
    clickCell(2, Column::Category);
    startRenaming("Zoo");
    controller.removeCategory();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Merge “Rent” into “Zoo”?");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Zoo"}));
}

TEST_F(CVCategoryEditControllerTest, WithoutAnAnswerWhenTheProgramEndsATakenNameChangesNothing) {
    open();
    clickCell(1, Column::Category);
    startRenaming("Food");
    mWindow->keepEntries();
    mWindow.reset();
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(document().countOfCategories(), 4U);
    EXPECT_EQ(mBudget.categoryNamed("Fuel")->uniqueID(), 2U);
}

TEST_F(CVCategoryEditControllerTest, WhatGoesWhileTheQuestionIsShownIsNotMerged) {
    mAlerts.meanwhile([this] { document().removeCategory(mBudget.categoryNamed("Food")); });
    open();
    rename(1, "Food");
    EXPECT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mBudget.transactionAt(0)->categoryName(), "Fuel");
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVCategoryEditControllerTest, WhatTheFileCannotCarryIsLeftOutOfAName) {
    open();
    rename(2, QStringLiteral("A\u0002\uFFFEB"));
    EXPECT_EQ(mBudget.categoryNamed("AB")->uniqueID(), 3U);
}

TEST_F(CVCategoryEditControllerTest, ALineBreakInANameIsABlank) {
    open();
    rename(2, "Rent\nand Power\r\n");
    EXPECT_EQ(mBudget.categoryNamed("Rent and Power")->uniqueID(), 3U);
}

TEST_F(CVCategoryEditControllerTest, AddingLetsTheUserTypeTheNameAtOnce) {
    open();
    clickButton("Add");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "New Category", "Rent", "Zoo"}));
    EXPECT_EQ(selectedRows(), std::vector{2});
    EXPECT_EQ(mSaver.count(), 1);
    auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->selectedText(), "New Category");
    EXPECT_EQ(field->accessibleName(), "Category");
    type("Apples");
    commit();
    EXPECT_EQ(column(Column::Category).constFirst(), "Apples");
    EXPECT_EQ(mBudget.categoryNamed("Apples")->uniqueID(), 12U);
    EXPECT_EQ(selectedRows(), std::vector{0});
    EXPECT_TRUE(canDelete());
    EXPECT_EQ(mSaver.count(), 2);
}

TEST_F(CVCategoryEditControllerTest, AddingTwiceWithoutRenamingMakesOneCategory) {
    open();
    clickButton("Add");
    commit(Qt::Key_Escape);
    clickCell(0, Column::Category);
    clickButton("Add");
    EXPECT_EQ(document().countOfCategories(), 5U);
    EXPECT_EQ(selectedRows(), std::vector{2});
    EXPECT_EQ(mNotifications.count(CVNotifications::kCategoryAddedRemoved), 2) << "one insertion";
}

TEST_F(CVCategoryEditControllerTest, AddingGivesUpWhatIsBeingTypedInACell) {
    open();
    clickCell(3, Column::Category);
    startRenaming("Lost");
    clickButton("Add");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "New Category", "Rent", "Zoo"}));
    EXPECT_EQ(mSaver.count(), 1);
    type("Bread");
    press(Qt::Key_A, Qt::AltModifier);
    QTest::qWait(200);
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "New Category", "Rent", "Zoo"}))
        << "the mnemonic as the mouse";
}

TEST_F(CVCategoryEditControllerTest, DeletingFirstTakesWhatIsBeingTyped) {
    auto& controller = open();
    clickCell(2, Column::Category);
    startRenaming("Rental");
    // The function is called directly, because a click would first take the focus from the cell.
    controller.removeCategory();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Are you sure you want to delete the 'Rental' category?");
    EXPECT_EQ(column(Column::Category), (QStringList{"Food", "Fuel", "Zoo"}));
}

TEST_F(CVCategoryEditControllerTest, LettersSelectByName) {
    open();
    clickCell(0, Column::InUse);
    type("re");
    EXPECT_EQ(table().currentIndex().row(), 2);
    EXPECT_EQ(selectedRows(), std::vector{2});
}

TEST_F(CVCategoryEditControllerTest, WhenTheLastCategoryIsGoneTheTableSaysWhatToDo) {
    auto& controller = open();
    table().selectAll();
    EXPECT_FALSE(canDelete()) << "no row was clicked";
    controller.removeCategory();
    EXPECT_EQ(document().countOfCategories(), 0U);
    EXPECT_NE(table().accessibleDescription(), "");
    EXPECT_FALSE(canDelete());
    clickButton("Add");
    EXPECT_EQ(table().accessibleDescription(), "");
}

} // namespace
