#include "kit/DefaultLocale.h"
#include "widgets/fields/CVMoneyField.h"
#include "workspace/controls/EntryStripFixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>

namespace {

constexpr const char* kFields[] = {"mExpenseDate", "mExpenseAmountField",      "mExpenseToFromComboBox",
                                   "mForField",    "mExpenseCategoryComboBox", "mTaxCheckbox",
                                   "mRecordButton"};

using CVEntryStripTest = EntryStripFixture;

TEST_F(CVEntryStripTest, TheTabKeyLeadsThroughTheFieldsInOrder) {
    for (const char* const field : kFields) {
        EXPECT_EQ(focused(), field);
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget(), mOther);
}

TEST_F(CVEntryStripTest, ReturnAnywhereAsksToRecordOnce) {
    for (const char* const field : kFields) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            mRecorded = 0;
            find<QWidget>(field)->setFocus();
            press(key);
            settle();
            EXPECT_EQ(mRecorded, 1) << field;
        }
    }
    EXPECT_FALSE(find<QCheckBox>("mTaxCheckbox")->isChecked()) << "Return is not the key of a check box";
}

TEST_F(CVEntryStripTest, TabAndReturnAcceptTheCompletionShown) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
        find<QWidget>("mExpenseToFromComboBox")->setFocus();
        type("b");
        press(key);
        EXPECT_EQ(mStrip->entry().payTo, "Bakery");
        find<QWidget>("mExpenseCategoryComboBox")->setFocus();
        type("groc");
        press(key);
        EXPECT_EQ(mStrip->entry().category, "Groceries");
        mStrip->clearFields();
    }
}

TEST_F(CVEntryStripTest, ALineBreakInAPastedTextIsABlank) {
    QGuiApplication::clipboard()->setText("Corner\nMarket\n");
    for (const char* const field : {"mExpenseToFromComboBox", "mForField", "mExpenseCategoryComboBox"}) {
        find<QWidget>(field)->setFocus();
        press(Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(mStrip->entry().payTo, "Corner Market");
    EXPECT_EQ(mStrip->entry().xfor, "Corner Market");
    EXPECT_EQ(mStrip->entry().category, "Corner Market");
}

TEST_F(CVEntryStripTest, AnOfferedNameOfTwoLinesIsTakenAsItIs) {
    mStrip->setCategoryItems({"Two\nLines"});
    find<QWidget>("mExpenseCategoryComboBox")->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(mStrip->entry().category, "Two\nLines");
}

TEST_F(CVEntryStripTest, TheDateIsTypedInShortAndStepped) {
    struct {
        const char* typed;
        QBDate date;
    } const rows[] = {{"7", day(2014, 3, 7)}, {"4/7", day(2014, 4, 7)}, {"5/8/13", day(2013, 5, 8)}};
    for (const auto& row : rows) {
        typeDate(row.typed);
        press(Qt::Key_Tab);
        EXPECT_EQ(mStrip->entry().date, row.date) << row.typed;
    }
    mStrip->focusField(CVEntryField::Date);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    EXPECT_EQ(mStrip->entry().date, day(2013, 5, 9));
    settle();
    EXPECT_EQ(mProblems, QStringList());
}

TEST_F(CVEntryStripTest, AnAmountMayBeArithmetic) {
    find<QWidget>("mExpenseAmountField")->setFocus();
    EXPECT_EQ(find<QLineEdit>("mExpenseAmountField")->selectedText(), "$0.00");
    QTest::keyClicks(QApplication::focusWidget(), "12.50+3*2");
    press(Qt::Key_Return);
    EXPECT_EQ(mStrip->entry().amount, 18.5);
    EXPECT_EQ(find<QLineEdit>("mExpenseAmountField")->text(), "$18.50");
}

TEST_F(CVEntryStripTest, AnUnreadableAmountIsAProblemOfTheInput) {
    find<QWidget>("mExpenseAmountField")->setFocus();
    type("1/0");
    press(Qt::Key_Return);
    EXPECT_EQ(mProblems, QStringList({"“1/0” in the field “Amount” is not an amount. Type an amount like $1,234.50."}));
    EXPECT_EQ(mTitles, QStringList({"Input Error"}));
    EXPECT_EQ(focused(), "mExpenseAmountField");
}

TEST_F(CVEntryStripTest, ANewLocaleShowsDateAndAmountAnewWithTheirValues) {
    find<CVMoneyField>("mExpenseAmountField")->setDoubleValue(1234.5);
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    mStrip->localeChanged();
    EXPECT_EQ(find<QLineEdit>("mExpenseAmountField")->text(), "€1.234,50");
    EXPECT_EQ(date().text(), "12.03.14");
    EXPECT_EQ(mStrip->entry().amount, 1234.5);
    EXPECT_EQ(mStrip->entry().date, day(2014, 3, 12));
}

TEST(CVEntryStrip, ShowsItsTextsInFullAlsoInDoubleSize) {
    const QFont before = QApplication::font();
    for (const int percent : {100, 150, 200}) {
        QFont font = before;
        font.setPointSizeF(before.pointSizeF() * percent / 100);
        QApplication::setFont(font);
        CVEntryStrip strip;
        strip.resize(strip.minimumSizeHint());
        strip.show();
        QTest::qWait(0);
        EXPECT_LE(strip.width(), 1280) << percent;
        for (const auto* const label : strip.findChildren<QLabel*>()) {
            if (label->isWindow())
                continue;
            EXPECT_GE(label->width(), label->sizeHint().width()) << percent << label->text().toStdString();
            EXPECT_GE(label->height(), label->sizeHint().height()) << percent << label->text().toStdString();
        }
        for (const char* const name : {"mTaxCheckbox", "mRecordButton"}) {
            const auto* const button = strip.findChild<QAbstractButton*>(name);
            EXPECT_GE(button->width(), button->minimumSizeHint().width()) << percent << name;
        }
        for (const char* const name : {"mExpenseDate", "mExpenseAmountField"}) {
            const auto* const field = strip.findChild<QLineEdit*>(name);
            EXPECT_GT(field->width(), field->fontMetrics().horizontalAdvance(field->text())) << percent << name;
            EXPECT_GE(field->height(), field->fontMetrics().height()) << percent << name;
        }
    }
    QApplication::setFont(before);
}

} // namespace
