#include "widgets/fields/CVMoneyField.h"

#include "kit/DefaultLocale.h"
#include "kit/Printers.h"
#include "widgets/fields/CVFieldNote.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class CVMoneyFieldTest : public testing::Test {
protected:
    CVMoneyFieldTest() {
        auto* const layout = new QVBoxLayout(&mWindow);
        layout->addWidget(mOther);
        layout->addWidget(mField);
        mWindow.show();
        mWindow.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mWindow));
        mOther->setFocus();
    }

    void type(const QString& text) {
        mField->setFocus();
        mField->selectAll();
        QTest::keyClicks(mField, text);
        QTest::keyClick(mField, Qt::Key_Return);
    }

    /// The note below the field.
    [[nodiscard]] QString preview() const {
        const auto* const note = mField->findChild<CVFieldNote*>();
        return note->isVisible() ? note->text() : QString();
    }

    QWidget mWindow;
    QLineEdit* mOther = new QLineEdit(&mWindow);
    CVMoneyField* mField = new CVMoneyField(&mWindow);
};

TEST_F(CVMoneyFieldTest, HoldsZeroAtFirst) {
    EXPECT_EQ(mField->doubleValue(), 0.0);
    EXPECT_EQ(mField->text(), "$0.00");
}

TEST_F(CVMoneyFieldTest, SelectsItselfWhenItGetsTheFocus) {
    QTest::keyClick(mOther, Qt::Key_Tab);
    ASSERT_TRUE(mField->hasFocus());
    EXPECT_EQ(mField->selectedText(), "$0.00");
    mOther->setFocus();
    mField->deselect();
    QTest::mouseClick(mField, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(mField->selectedText(), "$0.00");
}

TEST_F(CVMoneyFieldTest, ShowsWhatWasTypedAsMoneyAndKeepsItExactly) {
    type("1234.5");
    EXPECT_EQ(mField->text(), "$1,234.50");
    type("0.009");
    EXPECT_EQ(mField->text(), "$0.01");
    EXPECT_EQ(mField->doubleValue(), 0.009);
    mField->endEditing();
    EXPECT_EQ(mField->doubleValue(), 0.009);
}

TEST_F(CVMoneyFieldTest, ATextThatIsNoAmountIsMarkedAndNeverTakenForZero) {
    type("12");
    type("12x");
    EXPECT_FALSE(mField->isReadable());
    EXPECT_EQ(mField->text(), "12x");
    EXPECT_EQ(mField->doubleValue(), 12.0);
    EXPECT_EQ(mField->toolTip(), "Type an amount like $1,234.50.");
    mField->setDoubleValue(5);
    EXPECT_TRUE(mField->isReadable());
}

TEST_F(CVMoneyFieldTest, TheMarkOfWhatCannotBeReadGoesWithTheNextLetterAndComesBackWithTheNextReading) {
    const QAction* const mark = mField->actions().constFirst();
    type("abc");
    EXPECT_TRUE(mark->isVisible());
    mField->selectAll();
    QTest::keyClicks(mField, "5%");
    EXPECT_EQ(preview(), "= $0.05");
    EXPECT_FALSE(mark->isVisible()) << "beside a result";
    EXPECT_EQ(mField->toolTip(), "");
    QTest::keyClicks(mField, "abc");
    QTest::keyClick(mField, Qt::Key_Return);
    EXPECT_TRUE(mark->isVisible());
    EXPECT_EQ(mField->toolTip(), "Type an amount like $1,234.50.");
}

TEST_F(CVMoneyFieldTest, AnEmptyTextIsZero) {
    type("12");
    mField->selectAll();
    QTest::keyClick(mField, Qt::Key_Delete);
    mField->endEditing();
    EXPECT_TRUE(mField->isReadable());
    EXPECT_EQ(mField->doubleValue(), 0.0);
    mField->setDoubleValue(3);
    mField->clearValue();
    EXPECT_EQ(mField->text(), "");
    EXPECT_EQ(mField->doubleValue(), 0.0);
}

TEST_F(CVMoneyFieldTest, ShowsTheResultWhileArithmeticIsTypedAndNoneForAPlainAmount) {
    const QRect place = mField->geometry();
    mField->setFocus();
    mField->selectAll();
    struct {
        const char* typed;
        const char* preview;
    } const steps[] = {{"12", ""},        {".50", ""},           {"+", ""}, {"3", "= $15.50"}, {"*", ""},
                       {"2", "= $18.50"}, {"-100", "= -$81.50"}, {"x", ""}};
    for (const auto& step : steps) {
        QTest::keyClicks(mField, step.typed);
        EXPECT_EQ(preview(), step.preview) << mField->text().toStdString();
        EXPECT_EQ(mField->accessibleDescription(), step.preview);
        EXPECT_EQ(mField->doubleValue(), 0.0) << "the value changes when editing ends";
    }
    EXPECT_EQ(mField->geometry(), place);
}

TEST_F(CVMoneyFieldTest, TheResultTakesThePlaceOfTheTextWhenEditingEnds) {
    type("200+10%");
    EXPECT_EQ(mField->text(), "$220.00");
    EXPECT_EQ(mField->doubleValue(), 220.0);
    EXPECT_EQ(preview(), "");
    EXPECT_EQ(mField->accessibleDescription(), "");
    mField->selectAll();
    QTest::keyClicks(mField, "10/4");
    EXPECT_EQ(preview(), "= $2.50");
    mOther->setFocus();
    EXPECT_EQ(mField->text(), "$2.50");
    EXPECT_EQ(preview(), "");
}

TEST_F(CVMoneyFieldTest, ThePreviewLiesBelowTheFieldAndGoesWhenTheFieldIsLeft) {
    mField->setFocus();
    QTest::keyClicks(mField, "1+1");
    const auto* const note = mField->findChild<CVFieldNote*>();
    EXPECT_EQ(note->pos(), mField->mapToGlobal(QPoint(0, mField->height())));
    EXPECT_TRUE(mField->hasFocus()) << "the preview takes the keyboard away";
    QTest::keyClicks(mField, "+");
    mOther->setFocus();
    EXPECT_FALSE(mField->isReadable());
    EXPECT_EQ(preview(), "");
    EXPECT_EQ(mField->accessibleDescription(), mField->expectation());
}

TEST_F(CVMoneyFieldTest, ArithmeticWithoutAResultIsMarkedAndTheAmountStays) {
    type("12");
    for (const char* const text : {"1/0", "1+", "(1", "2**3", "sin(1)"}) {
        type(text);
        EXPECT_FALSE(mField->isReadable()) << text;
        EXPECT_EQ(mField->text(), text);
        EXPECT_EQ(mField->doubleValue(), 12.0);
    }
}

TEST_F(CVMoneyFieldTest, ShowsTheSameAmountInANewLocale) {
    type("1234.567");
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    QEvent change(QEvent::LocaleChange);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
    EXPECT_EQ(mField->text(), "€1.234,57");
    EXPECT_EQ(mField->doubleValue(), 1234.567);
    type("1.000,5+1");
    EXPECT_EQ(mField->text(), "€1.001,50");
    type("x");
    EXPECT_EQ(mField->toolTip(), "Type an amount like €1.234,50.");
}

TEST_F(CVMoneyFieldTest, WhatWasTypedBeforeTheLocaleChangedIsReadInTheFormerOne) {
    mField->setFocus();
    mField->selectAll();
    QTest::keyClicks(mField, "1.500");
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    mField->localeChanged();
    EXPECT_EQ(mField->doubleValue(), 1.5);
    EXPECT_EQ(mField->text(), "€1,50");
}

TEST_F(CVMoneyFieldTest, ANewLocaleLeavesAnEmptyAndAnUnreadableTextAsTheyAre) {
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    mField->clearValue();
    mField->localeChanged();
    EXPECT_EQ(mField->text(), "");
    type("12x");
    const DefaultLocale american(QLocale(QLocale::English, QLocale::UnitedStates));
    mField->localeChanged();
    EXPECT_EQ(mField->text(), "12x");
    EXPECT_FALSE(mField->isReadable());
    EXPECT_EQ(mField->toolTip(), "Type an amount like $1,234.50.");
}

TEST_F(CVMoneyFieldTest, ATextThatAnAssistiveTechnologySetsCountsAsTyped) {
    mField->setText("10/4");
    EXPECT_EQ(mField->doubleValue(), 2.5);
    EXPECT_EQ(mField->text(), "$2.50");
    mField->setFocus();
    mField->setText("3");
    EXPECT_EQ(mField->doubleValue(), 2.5) << "read when editing ends";
    mOther->setFocus();
    EXPECT_EQ(mField->doubleValue(), 3.0);
    mField->setText("x");
    EXPECT_FALSE(mField->isReadable());
}

} // namespace
