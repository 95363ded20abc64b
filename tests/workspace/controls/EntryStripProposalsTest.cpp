#include "workspace/controls/EntryStripFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>

namespace {

class EntryStripProposalsTest : public EntryStripFixture {
protected:
    [[nodiscard]] QLineEdit& purpose() const { return *find<QLineEdit>("mForField"); }
    [[nodiscard]] QLineEdit& category() const { return *find<QComboBox>("mExpenseCategoryComboBox")->lineEdit(); }
    [[nodiscard]] QString note() const { return find<QLabel>("mNewCategoryNote")->text(); }

    /// Leaves the payee as the user does, with a proposal in the fields behind it.
    void proposeWhileInPayee(const QString& xfor, const QString& category) const {
        mStrip->focusField(CVEntryField::PayTo);
        mStrip->propose(xfor, category);
    }
};

TEST_F(EntryStripProposalsTest, AProposalShowsSelectedInFieldsInWhichNothingStands) {
    proposeWhileInPayee("weekly shop", "Groceries");
    EXPECT_EQ(purpose().text(), "weekly shop");
    EXPECT_EQ(purpose().selectedText(), "weekly shop");
    EXPECT_EQ(category().text(), "Groceries");
    EXPECT_EQ(category().selectedText(), "Groceries");
    EXPECT_EQ(mStrip->entry().category, "Groceries") << "what is seen is what is recorded";
    EXPECT_EQ(mStrip->entry().xfor, "weekly shop");
}

TEST_F(EntryStripProposalsTest, WhatStandsInAFieldIsNeverTouched) {
    mStrip->focusField(CVEntryField::Category);
    type("Car");
    mStrip->focusField(CVEntryField::For);
    type("x");
    proposeWhileInPayee("weekly shop", "Groceries");
    EXPECT_EQ(purpose().text(), "x");
    EXPECT_EQ(category().text(), "Car");
    proposeWhileInPayee({}, {});
    EXPECT_EQ(purpose().text(), "x");
    EXPECT_EQ(category().text(), "Car");
}

TEST_F(EntryStripProposalsTest, OfALongTextTheBeginningIsSeen) {
    const QString text = QString("monthly contribution to the fund of the house ").repeated(5);
    proposeWhileInPayee(text, "Groceries");
    EXPECT_EQ(purpose().text(), text);
    EXPECT_EQ(purpose().cursorPosition(), 0);
    mStrip->setEntry({day(2014, 3, 1), 1, "Bakery", text, "Car", false});
    EXPECT_EQ(purpose().cursorPosition(), 0);
    EXPECT_EQ(purpose().selectedText(), "");
}

TEST_F(EntryStripProposalsTest, ABlankCountsAsAText) {
    mStrip->focusField(CVEntryField::For);
    type(" ");
    proposeWhileInPayee("weekly shop", {});
    EXPECT_EQ(purpose().text(), " ");
}

TEST_F(EntryStripProposalsTest, TheNextProposalTakesThePlaceOfTheFormerOne) {
    proposeWhileInPayee("weekly shop", "Groceries");
    proposeWhileInPayee({}, "Car");
    EXPECT_EQ(purpose().text(), "");
    EXPECT_EQ(category().text(), "Car");
    proposeWhileInPayee({}, {});
    EXPECT_EQ(category().text(), "");
}

TEST_F(EntryStripProposalsTest, TabAcceptsAndTheTextStaysWhateverIsProposedLater) {
    proposeWhileInPayee("weekly shop", "Groceries");
    press(Qt::Key_Tab);
    ASSERT_EQ(focused(), "mForField");
    EXPECT_EQ(purpose().selectedText(), "weekly shop");
    press(Qt::Key_Tab);
    ASSERT_EQ(focused(), "mExpenseCategoryComboBox");
    EXPECT_EQ(category().selectedText(), "Groceries");
    press(Qt::Key_Tab);
    proposeWhileInPayee("other", "Car");
    EXPECT_EQ(purpose().text(), "weekly shop");
    EXPECT_EQ(category().text(), "Groceries");
}

TEST_F(EntryStripProposalsTest, TypingReplacesAProposalAndCompletesAsEver) {
    proposeWhileInPayee("weekly shop", "Groceries");
    press(Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "b");
    EXPECT_EQ(purpose().text(), "b");
    press(Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "c");
    EXPECT_EQ(category().text(), "Car");
    EXPECT_EQ(category().selectedText(), "ar");
}

TEST_F(EntryStripProposalsTest, BackspaceRefusesAProposal) {
    for (const CVEntryField field : {CVEntryField::For, CVEntryField::Category}) {
        mStrip->clearFields();
        proposeWhileInPayee("weekly shop", "Groceries");
        mStrip->focusField(field);
        press(Qt::Key_Backspace);
        press(Qt::Key_Tab);
        EXPECT_EQ(field == CVEntryField::For ? mStrip->entry().xfor : mStrip->entry().category, "");
    }
}

TEST_F(EntryStripProposalsTest, WhatIsRecordedStaysAProposalUntilTheNextOneComes) {
    proposeWhileInPayee("weekly shop", "Groceries");
    mStrip->noteRecorded();
    EXPECT_EQ(purpose().text(), "weekly shop");
    proposeWhileInPayee("other", "Car");
    EXPECT_EQ(purpose().text(), "other");
    EXPECT_EQ(category().text(), "Car");
}

TEST_F(EntryStripProposalsTest, APayeeIsAnnouncedWithItsCompletionAndOnlyWhenTheUserEntersIt) {
    const QSignalSpy entered(mStrip, &CVEntryStrip::payeeEntered);
    mStrip->focusField(CVEntryField::PayTo);
    type("m");
    ASSERT_FALSE(entered.isEmpty());
    EXPECT_EQ(entered.constLast().constFirst().toString(), "Market");
    press(Qt::Key_Backspace);
    EXPECT_EQ(entered.constLast().constFirst().toString(), "m");
    const auto count = entered.size();
    mStrip->clearFields();
    mStrip->setEntry({day(2014, 3, 1), 1, "Bakery", "", "", false});
    mStrip->setPaidToItems({"Kiosk"});
    EXPECT_EQ(entered.size(), count);
}

TEST_F(EntryStripProposalsTest, AnEntryThatIsSetIsShownAndCountsAsKnownUntilTheUserChangesIt) {
    const CVEntry entry{day(2014, 3, 1), 12.5, "Market", "bread", "Groceries", true};
    EXPECT_FALSE(mStrip->hasUnrecordedEntry());
    mStrip->setEntry(entry);
    EXPECT_EQ(mStrip->entry(), entry);
    EXPECT_TRUE(find<QCheckBox>("mTaxCheckbox")->isChecked());
    EXPECT_FALSE(mStrip->hasUnrecordedEntry());
    for (const char* const field :
         {"mExpenseDate", "mExpenseAmountField", "mExpenseToFromComboBox", "mForField", "mExpenseCategoryComboBox"}) {
        mStrip->setEntry(entry);
        find<QWidget>(field)->setFocus();
        type("4");
        EXPECT_TRUE(mStrip->hasUnrecordedEntry()) << field;
        mStrip->noteRecorded();
        EXPECT_FALSE(mStrip->hasUnrecordedEntry()) << field;
    }
    find<QCheckBox>("mTaxCheckbox")->toggle();
    EXPECT_TRUE(mStrip->hasUnrecordedEntry());
}

TEST_F(EntryStripProposalsTest, ATextThatCannotBeReadIsAnEntryToo) {
    mStrip->focusField(CVEntryField::Amount);
    type("12x");
    EXPECT_TRUE(mStrip->hasUnrecordedEntry());
}

TEST_F(EntryStripProposalsTest, ANoteSaysThatACategoryIsNew) {
    struct Case {
        const char* typed;
        bool isNew;
    };
    constexpr Case kCases[] = {{"", false},    {"Car", false}, {"c", false},
                               {"CAR", false}, {"car ", true}, {"Boat", true}};
    const QRect place = category().geometry();
    for (const auto& [typed, isNew] : kCases) {
        mStrip->focusField(CVEntryField::Category);
        type(typed);
        EXPECT_EQ(note(), isNew ? "new category" : "") << typed;
        EXPECT_EQ(find<QWidget>("mExpenseCategoryComboBox")->accessibleDescription(), note());
        QCoreApplication::processEvents();
        EXPECT_EQ(category().geometry(), place) << "nothing moves";
    }
    press(Qt::Key_Tab);
    EXPECT_EQ(note(), "new category") << "until it is recorded";
    mStrip->setCategoryItems({"Boat", "Car"});
    EXPECT_EQ(note(), "");
}

} // namespace
