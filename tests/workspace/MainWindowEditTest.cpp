#include "widgets/fields/CVFieldNote.h"
#include "widgets/fields/CVMoneyField.h"
#include "workspace/MainWindowFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>

#include <functional>

namespace {

class MainWindowEditTest : public MainWindowFixture {
protected:
    void SetUp() override {
        mBudget.category("Food", 1).category("Fuel", 2).lastID(2);
        mBudget
            .transaction(
                {.date = day(2014, 3, 6), .amount = 30, .payTo = "Market", .xfor = "bread", .category = "Food"})
            .transaction({.date = day(2014, 3, 3), .amount = 10, .payTo = "Station", .category = "Fuel"});
        mBudget.inOrder();
        mMarket = mBudget.transactionAt(0);
        open();
        table().setFocus();
    }

    /// Opens the editor of a cell as F2 does and replaces its text.
    void edit(int row, Column column, const QString& text) const {
        table().setFocus();
        table().setCurrentIndex(table().model()->index(row, column));
        press(Qt::Key_F2);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        type(text);
    }

    /// Whether the text of a field lies nearer to its right edge than to its left.
    static bool isAtTheRight(QLineEdit& field) {
        // A field places its text when it is painted.
        const auto cursor = [&field] {
            (void)field.grab();
            return field.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
        };
        field.home(false);
        const int begin = cursor();
        field.end(false);
        return begin + cursor() > field.width();
    }

    /// Presses a key and processes posted events: a cell editor commits after the key event.
    static void commit(Qt::Key key = Qt::Key_Return) {
        press(key);
        QCoreApplication::processEvents();
    }

    void clickCell(int row, Column column) const {
        const QPoint place = table().visualRect(table().model()->index(row, column)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
    }

    std::shared_ptr<CVTransaction> mMarket;
};

TEST_F(MainWindowEditTest, TextsAreEditedInTheirCellsAndSaved) {
    edit(0, Column::ToFrom, "Grocer");
    commit();
    EXPECT_EQ(mMarket->payTo(), "Grocer");
    EXPECT_EQ(mSaver.count(), 1);
    edit(0, Column::For, "rolls");
    commit();
    EXPECT_EQ(mMarket->xfor(), "rolls");
    EXPECT_EQ(mSaver.count(), 2);
    EXPECT_EQ(table().currentIndex().row(), 0);
}

TEST_F(MainWindowEditTest, ATextIsAsLongInItsCellAsItWasRecorded) {
    const QString text = QString(40'000, 'x') + "end";
    mMarket->setPayTo(text);
    mMarket->setFor(text);
    mBudget.categoryNamed("Food")->setCategoryName(text);
    mController->getStarted();
    for (const Column column : {Column::ToFrom, Column::For, Column::Category}) {
        table().setFocus();
        table().setCurrentIndex(table().model()->index(0, column));
        press(Qt::Key_F2);
        ASSERT_NE(QApplication::focusWidget(), &table());
        commit();
    }
    EXPECT_EQ(mMarket->payTo(), text);
    EXPECT_EQ(mMarket->xfor(), text);
    EXPECT_EQ(mMarket->categoryName(), text);
}

TEST_F(MainWindowEditTest, ALineBreakInAPastedTextIsABlank) {
    QGuiApplication::clipboard()->setText("Corner\nMarket\n");
    for (const Column column : {Column::ToFrom, Column::For, Column::Category}) {
        edit(0, column, {});
        press(Qt::Key_V, Qt::ControlModifier);
        commit();
    }
    EXPECT_EQ(mMarket->payTo(), "Corner Market");
    EXPECT_EQ(mMarket->xfor(), "Corner Market");
    EXPECT_EQ(mMarket->categoryName(), "Corner Market");
}

TEST_F(MainWindowEditTest, ATextOfTwoLinesThatIsOnlyLookedAtStaysAsItIs) {
    mMarket->setPayTo("Corner\nMarket");
    mMarket->setFor("two\nlines");
    for (const Column column : {Column::ToFrom, Column::For}) {
        table().setFocus();
        table().setCurrentIndex(table().model()->index(0, column));
        press(Qt::Key_F2);
        commit();
    }
    EXPECT_EQ(mMarket->payTo(), "Corner\nMarket");
    EXPECT_EQ(mMarket->xfor(), "two\nlines");
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(MainWindowEditTest, AnAmountIsCalculatedAndTheSumsFollow) {
    edit(0, Column::Amount, "2*(10+5.25)");
    commit();
    EXPECT_EQ(mMarket->amount(), 30.5);
    EXPECT_EQ(textOf("mTotalAmountField"), "$40.50");
}

TEST_F(MainWindowEditTest, AnAmountOfZeroOrLessIsAcceptedHere) {
    edit(0, Column::Amount, "-5");
    commit();
    EXPECT_EQ(mMarket->amount(), -5.0);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(MainWindowEditTest, WhatCannotBeReadChangesNothing) {
    edit(0, Column::Amount, "12..5");
    commit();
    EXPECT_NE(table().focusWidget(), &table()) << "the editor stays open and says what is wrong";
    EXPECT_EQ(table().findChild<CVMoneyField*>()->text(), "12..5");
    commit(Qt::Key_Escape);
    EXPECT_EQ(mMarket->amount(), 30.0);
    edit(0, Column::Date, "13/45");
    commit();
    commit(Qt::Key_Escape);
    EXPECT_EQ(mMarket->effectiveDate(), day(2014, 3, 6));
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(MainWindowEditTest, WhatCannotBeReadStaysWithItsReasonWhereverTheMouseGoes) {
    struct {
        Column column;
        const char* typed;
        const char* reason;
    } const rows[] = {{Column::Amount, "12..5", "Type an amount like $1,234.50."},
                      {Column::Date, "13/45", "Type a date like 3/7/14, with “/” between its parts."}};
    for (const auto& row : rows) {
        edit(0, row.column, row.typed);
        auto* const field = qobject_cast<CVFormattedField*>(QApplication::focusWidget());
        ASSERT_NE(field, nullptr);
        const auto isBack = [field] { return field->hasFocus() && field->text() == field->selectedText(); };
        const std::function<void()> goElsewhere[] = {
            [this] { clickCell(1, Column::ToFrom); },
            [this] { clickCell(0, Column::For); },
            [this] { QTest::mouseClick(find<QWidget>("mSearchField103"), Qt::LeftButton); },
            [this] { table().setFocus(); },
        };
        for (const auto& go : goElsewhere) {
            field->deselect();
            go();
            EXPECT_TRUE(QTest::qWaitFor(isBack));
            EXPECT_EQ(field->text(), row.typed);
            EXPECT_EQ(table().currentIndex(), table().model()->index(0, row.column));
            EXPECT_EQ(field->findChild<CVFieldNote*>()->text(), row.reason);
            EXPECT_TRUE(field->findChild<CVFieldNote*>()->isVisible());
        }
        type("1");
        EXPECT_FALSE(field->findChild<CVFieldNote*>()->text() == row.reason);
        commit(Qt::Key_Escape);
        EXPECT_TRUE(table().hasFocus());
    }
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(MainWindowEditTest, AnEditorHasRoomForItsTextBesideItsButtons) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        window().setLayoutDirection(direction);
        for (const Column column : {Column::Date, Column::Amount}) {
            edit(0, column, "12x");
            commit();
            const auto* const field = qobject_cast<CVFormattedField*>(QApplication::focusWidget());
            ASSERT_NE(field, nullptr);
            EXPECT_GE(field->width(), field->sizeHint().width());
            EXPECT_TRUE(table().viewport()->rect().contains(field->geometry()));
            commit(Qt::Key_Escape);
        }
    }
}

TEST_F(MainWindowEditTest, AnAmountLiesAtTheSameEdgeInItsCellInTheEditorAndInTheStrip) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        window().setLayoutDirection(direction);
        const auto inCell = table().model()->index(0, Column::Amount).data(Qt::TextAlignmentRole).toInt();
        const bool isRight = QStyle::visualAlignment(direction, Qt::Alignment(inCell)).testFlag(Qt::AlignRight);
        EXPECT_EQ(isRight, direction == Qt::LeftToRight);
        edit(0, Column::Amount, "7");
        EXPECT_EQ(isAtTheRight(*qobject_cast<QLineEdit*>(QApplication::focusWidget())), isRight);
        commit(Qt::Key_Escape);
        EXPECT_EQ(isAtTheRight(*find<CVMoneyField>("mExpenseAmountField")), isRight);
    }
}

TEST_F(MainWindowEditTest, EscapeAndAnUnchangedTextSaveNothing) {
    edit(0, Column::ToFrom, "Grocer");
    commit(Qt::Key_Escape);
    EXPECT_EQ(mMarket->payTo(), "Market");
    edit(0, Column::ToFrom, "Market");
    commit();
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(MainWindowEditTest, ANewDateMovesTheRowWidensTheRangeAndKeepsTheDocumentInOrder) {
    edit(0, Column::Date, "1/2/14");
    commit();
    EXPECT_EQ(mMarket->effectiveDate(), day(2014, 1, 2));
    EXPECT_EQ(column(Column::ToFrom), (QStringList{"Station", "Market"}));
    EXPECT_EQ(textOf("mTransactionStartDate"), "1/2/14");
    EXPECT_EQ(document().transactions()[1], mMarket);
    EXPECT_EQ(document().earliestTransactionDate(), day(2014, 1, 2));
    EXPECT_EQ(table().currentIndex().row(), 1) << "the cursor stays with its transaction";
}

TEST_F(MainWindowEditTest, ACategoryIsCompletedOrMadeAnew) {
    edit(0, Column::Category, "fu");
    commit();
    EXPECT_EQ(mMarket->categoryID(), 2U);
    edit(0, Column::Category, "Holidays");
    commit();
    EXPECT_EQ(mMarket->categoryName(), "Holidays");
    EXPECT_EQ(document().countOfCategories(), 3U);
}

TEST_F(MainWindowEditTest, AClickTurnsAFlagRoundAndSoDoesSpace) {
    clickCell(0, Column::Tax);
    EXPECT_TRUE(mMarket->taxFlag());
    clickCell(0, Column::Tax);
    EXPECT_FALSE(mMarket->taxFlag());
    clickCell(0, Column::UserFlag);
    EXPECT_TRUE(mMarket->userFlag());
    press(Qt::Key_Space);
    EXPECT_FALSE(mMarket->userFlag());
    EXPECT_EQ(mSaver.count(), 4);
}

TEST_F(MainWindowEditTest, BothClicksOfADoubleClickTurnAFlagRound) {
    for (const Column column : {Column::Tax, Column::UserFlag}) {
        const QPoint place = table().visualRect(table().model()->index(0, column)).center();
        const int saved = mSaver.count();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
        EXPECT_EQ(mSaver.count(), saved + 1);
        EXPECT_TRUE(column == Column::Tax ? mMarket->taxFlag() : mMarket->userFlag());
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, place);
        EXPECT_EQ(mSaver.count(), saved + 2);
        EXPECT_FALSE(column == Column::Tax ? mMarket->taxFlag() : mMarket->userFlag());
    }
}

TEST_F(MainWindowEditTest, ARowThatNoLongerFitsTheSearchStaysUntilTheNextRebuild) {
    type("mSearchField103", "market");
    edit(0, Column::ToFrom, "Grocer");
    commit();
    EXPECT_EQ(column(Column::ToFrom), QStringList{"Grocer"});
    mController->getStarted();
    EXPECT_TRUE(column(Column::ToFrom).isEmpty());
}

TEST_F(MainWindowEditTest, TabGoesOnToTheNextCell) {
    edit(0, Column::ToFrom, "Grocer");
    commit(Qt::Key_Tab);
    EXPECT_EQ(mMarket->payTo(), "Grocer");
    press(Qt::Key_A, Qt::ControlModifier);
    type("rolls");
    commit();
    EXPECT_EQ(mMarket->xfor(), "rolls");
}

TEST_F(MainWindowEditTest, WhatIsBeingTypedIsKeptWhenTheWindowCloses) {
    edit(0, Column::ToFrom, "Grocer");
    window().close();
    EXPECT_EQ(mMarket->payTo(), "Grocer");
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(MainWindowEditTest, WhatIsBeingTypedIsKeptWhenACommandIsChosen) {
    edit(0, Column::ToFrom, "Grocer");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(mMarket->payTo(), "Grocer");
}

TEST_F(MainWindowEditTest, ALineWithoutADateGetsNoneByBeingLookedAt) {
    document().insertTransaction(makeTransaction({.payTo = "undated"}));
    mController->getStarted();
    const auto undated = document().transactions().back();
    table().setFocus();
    table().setCurrentIndex(table().model()->index(2, Column::Date));
    press(Qt::Key_F2);
    commit(Qt::Key_Tab);
    EXPECT_FALSE(undated->effectiveDate());
    edit(2, Column::Date, "3/7");
    commit();
    EXPECT_EQ(undated->effectiveDate(), day(2014, 3, 7));
}

TEST_F(MainWindowEditTest, TypingFindsAmountsByTheirDigits) {
    clickHeader(Column::Amount);
    table().setFocus();
    type("30");
    ASSERT_EQ(table().selectedTransactions().size(), 1U);
    EXPECT_EQ(table().selectedTransactions()[0], mMarket);
}

TEST_F(MainWindowEditTest, ReturnOpensTheEditor) {
    table().setCurrentIndex(table().model()->index(1, Column::For));
    commit();
    type("petrol");
    commit();
    EXPECT_EQ(mBudget.transactionAt(1)->xfor(), "petrol");
}

TEST_F(MainWindowEditTest, ANameThatWouldMakeANewCategoryIsNotedBelowItsCell) {
    edit(0, Column::Category, "Boa");
    auto* const note = table().findChild<CVFieldNote*>("mNewCategoryNote");
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->text(), "new category");
    EXPECT_TRUE(note->isVisible());
    press(Qt::Key_A, Qt::ControlModifier);
    type("fu");
    EXPECT_FALSE(note->isVisible()) << "completed to one that is there";
    commit(Qt::Key_Escape);
    EXPECT_EQ(document().countOfCategories(), 2U);
}

} // namespace
