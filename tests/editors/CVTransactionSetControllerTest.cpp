#include "editors/CVTransactionSetController.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "editors/CVTransactionSetModel.h"
#include "editors/EditorFixture.h"

#include <QLineEdit>

namespace {

using SetColumn = CVTransactionSetModel::Column;

class CVTransactionSetControllerTest : public EditorFixture {
protected:
    CVTransactionSetControllerTest() : EditorFixture("mTransactionSetTable") {
        mBudget.notificationCenter().addObserver(
            CVNotifications::kTransactionSet, &mObserver, [this](const QBNotification& notification) {
                const auto* const set = std::any_cast<std::shared_ptr<CVTransactionSet>>(&notification.object);
                EXPECT_TRUE(!notification.object.has_value() || (set && *set));
                mAnnounced.push_back(set ? *set : nullptr);
            });
    }

    /// "Checking", the current one, has 1 transaction, "Savings" 3 and "Cash" none.
    void threeSets() {
        mBudget.set("Checking", 10).set("Savings", 11).set("Cash", 12).currentSet(10).lastID(12);
        for (const char* const set : {"Savings", "Checking", "Savings", "Savings"})
            mBudget.transaction({.date = day(2014, 3, 6), .amount = 30, .set = set});
        mBudget.inOrder();
    }

    CVTransactionSetController& open() { return EditorFixture::open<CVTransactionSetController>(mAlerts); }

    [[nodiscard]] bool canDelete() const { return find<QPushButton>("mRemoveTransactionSetButton")->isEnabled(); }

    QObject mObserver;
    /// The sets of all notifications.
    std::vector<std::shared_ptr<CVTransactionSet>> mAnnounced;
};

TEST_F(CVTransactionSetControllerTest, ShowsTheSetsWithTheNumbersOfTheirTransactions) {
    threeSets();
    open();
    EXPECT_EQ(window().windowTitle(), "Transaction Sets");
    EXPECT_EQ(column(SetColumn::Name), (QStringList{"Checking", "Savings", "Cash"}));
    EXPECT_EQ(column(SetColumn::Count), (QStringList{"1", "3", "0"}));
    EXPECT_FALSE(canDelete());
    EXPECT_TRUE(mAnnounced.empty());
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVTransactionSetControllerTest, TransactionsThatBelongToNoSetGetOneOfTheirID) {
    for (int i = 0; i < 3; ++i)
        mBudget.transaction({.date = day(2014, 3, 6), .amount = 1});
    open();
    EXPECT_EQ(column(SetColumn::Name), QStringList{"Initial Transaction Set"});
    EXPECT_EQ(column(SetColumn::Count), QStringList{"3"});
    ASSERT_EQ(document().countOfTransactionSets(), 1U);
    EXPECT_EQ(document().transactionSets()[0]->uniqueID(), 0U);
    EXPECT_EQ(document().transactionSets()[0]->document(), &document());
    EXPECT_EQ(document().uniqueID(), 0U) << "no ID was issued for it";
    clickButton("Add");
    EXPECT_EQ(document().currentTransactionSet(), 0U);
    EXPECT_EQ(column(SetColumn::Count), (QStringList{"3", "0"}));
}

TEST_F(CVTransactionSetControllerTest, WithoutTransactionsThereIsNoInitialSetAndTheFirstOneAddedIsCurrent) {
    auto& controller = open();
    EXPECT_EQ(document().countOfTransactionSets(), 0U);
    EXPECT_NE(table().accessibleDescription(), "") << "an empty table says what to do";
    controller.addTransactionSet();
    EXPECT_EQ(table().accessibleDescription(), "");
    const auto transaction = makeTransaction({.date = day(2014, 3, 7), .amount = 1});
    document().insertTransaction(transaction);
    EXPECT_EQ(transaction->transactionSetID(), document().currentTransactionSet());
}

TEST_F(CVTransactionSetControllerTest, TheOnlySetCannotBeDeleted) {
    mBudget.set("Checking", 10).currentSet(10);
    open();
    clickCell(0, SetColumn::Name);
    EXPECT_FALSE(canDelete());
    EXPECT_NE(remark(), "") << "the user wonders why";
    clickButton("Delete");
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVTransactionSetControllerTest, DeleteCanBePressedWhileOneOfSeveralIsSelected) {
    threeSets();
    auto& controller = open();
    controller.removeTransactionSet();
    EXPECT_TRUE(mAlerts.shown().isEmpty()) << "nothing is selected";
    clickCell(2, SetColumn::Count);
    EXPECT_TRUE(canDelete());
    clickCell(2, SetColumn::Count, Qt::ControlModifier);
    EXPECT_FALSE(canDelete());
}

TEST_F(CVTransactionSetControllerTest, TheCurrentSetIsRefused) {
    threeSets();
    open();
    clickCell(0, SetColumn::Name);
    EXPECT_EQ(remark(), "This is the current transaction set.");
    clickButton("Delete");
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const CVAlert& alert = mAlerts.shown()[0];
    EXPECT_EQ(alert.title, "You can not delete the current transaction set.");
    EXPECT_EQ(alert.message, "Change the current transaction set with the popup on the main window.");
    EXPECT_EQ(alert.defaultButton, "OK");
    EXPECT_EQ(alert.alternateButton, "");
    EXPECT_EQ(alert.style, CVAlert::Style::Information);
    EXPECT_EQ(document().countOfTransactionSets(), 3U);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVTransactionSetControllerTest, AnEmptySetIsDeletedAfterOneAlert) {
    threeSets();
    open();
    clickCell(2, SetColumn::Name);
    press(Qt::Key_Delete);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const CVAlert& alert = mAlerts.shown()[0];
    EXPECT_EQ(alert.title, "Do you really want to delete the 'Cash' transaction set?");
    EXPECT_EQ(alert.message, "You can't undo this action.");
    EXPECT_EQ(alert.defaultButton, "Delete");
    EXPECT_EQ(alert.alternateButton, "Cancel");
    EXPECT_EQ(column(SetColumn::Name), (QStringList{"Checking", "Savings"}));
    EXPECT_EQ(document().countOfTransactionSets(), 2U);
    EXPECT_EQ(document().transactions().size(), 4U);
    EXPECT_FALSE(canDelete());
    EXPECT_EQ(mSaver.count(), 1);
    ASSERT_EQ(mAnnounced.size(), 1U);
    EXPECT_EQ(mAnnounced[0], nullptr);
}

TEST_F(CVTransactionSetControllerTest, ASetWithTransactionsIsDeletedWithThemAfterTwoAlerts) {
    threeSets();
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    open();
    clickCell(1, SetColumn::Name);
    clickButton("Delete");
    ASSERT_EQ(mAlerts.shown().size(), 2);
    EXPECT_EQ(mAlerts.shown()[0].message, "Deleting this transaction set will delete all associated transactions. "
                                          "You can't undo this action.");
    const CVAlert& last = mAlerts.shown()[1];
    EXPECT_EQ(last.title, "Delete Transaction Set Last Warning");
    EXPECT_EQ(last.message, "You are about to delete 3 transactions.  Do you really want to do this?");
    EXPECT_EQ(last.defaultButton, "No");
    EXPECT_EQ(last.alternateButton, "Yes");
    EXPECT_EQ(last.escapeAnswer, CVAlert::kDefault) << "Escape must not delete anything";
    EXPECT_EQ(column(SetColumn::Name), (QStringList{"Checking", "Cash"}));
    EXPECT_EQ(document().transactions().size(), 1U);
    EXPECT_EQ(mNotifications.count(CVNotifications::kTransactionAddedRemoved), 1);
    EXPECT_EQ(mAnnounced.size(), 1U);
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(CVTransactionSetControllerTest, AnythingButDeleteAndThenYesKeepsEverything) {
    struct Case {
        std::initializer_list<CVAlert::Answer> answers;
        int alerts;
    };
    const Case cases[] = {{{CVAlert::kAlternate}, 1},
                          {{CVAlert::kOther}, 1},
                          {{CVAlert::kDefault, CVAlert::kDefault}, 2},
                          {{CVAlert::kDefault, CVAlert::kOther}, 2}};
    threeSets();
    open();
    clickCell(1, SetColumn::Name);
    int shown = 0;
    for (const auto& [answers, alerts] : cases) {
        mAlerts.answer(answers);
        clickButton("Delete");
        shown += alerts;
        EXPECT_EQ(mAlerts.shown().size(), shown);
        EXPECT_EQ(document().countOfTransactionSets(), 3U);
        EXPECT_EQ(document().transactions().size(), 4U);
    }
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_EQ(mNotifications.total(), 0);
    EXPECT_TRUE(canDelete()) << "the row is still selected";
}

TEST_F(CVTransactionSetControllerTest, AddingSavesAndAnnouncesTheSetAndLetsTheUserTypeItsName) {
    threeSets();
    open();
    clickButton("Add");
    EXPECT_EQ(column(SetColumn::Name), (QStringList{"Checking", "Savings", "Cash", "New Transaction Set"}));
    const auto set = document().transactionSets().back();
    EXPECT_EQ(set->uniqueID(), 13U);
    EXPECT_EQ(mSaver.count(), 1);
    ASSERT_EQ(mAnnounced.size(), 1U);
    EXPECT_EQ(mAnnounced[0], set);
    EXPECT_EQ(document().currentTransactionSet(), 10U);
    auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->selectedText(), "New Transaction Set");
    type("Credit Card");
    commit();
    EXPECT_EQ(set->transactionSetName(), "Credit Card");
    EXPECT_EQ(mAnnounced.size(), 2U);
    EXPECT_EQ(table().selectedRows(), std::vector{3});
}

TEST_F(CVTransactionSetControllerTest, ASetThatIsAddedAfterAResetHasAnIDOfItsOwn) {
    document().addDefaults();
    const quint32 last = document().uniqueID();
    mBudget.set("Checking", last + 1).set("Savings", last + 2).currentSet(last + 1).lastID(last + 2);
    document().reset_to_default_info();
    open();
    clickButton("Add");
    EXPECT_EQ(document().transactionSets().back()->uniqueID(), last + 3);
    EXPECT_EQ(document().findTransactionSetFromID(last + 1)->transactionSetName(), "Checking");
    EXPECT_EQ(document().findTransactionSetFromID(last + 3)->transactionSetName(), "New Transaction Set");
}

TEST_F(CVTransactionSetControllerTest, ALineBreakInANameIsABlank) {
    threeSets();
    open();
    rename(1, "Rainy\nDays\n");
    EXPECT_EQ(document().transactionSets()[1]->transactionSetName(), "Rainy Days");
}

TEST_F(CVTransactionSetControllerTest, AddingFirstTakesWhatIsBeingTyped) {
    threeSets();
    auto& controller = open();
    clickCell(1, SetColumn::Name);
    startRenaming("Reserves");
    controller.addTransactionSet();
    EXPECT_EQ(column(SetColumn::Name), (QStringList{"Checking", "Reserves", "Cash", "New Transaction Set"}));
}

TEST_F(CVTransactionSetControllerTest, ANewNameIsAnnouncedAtOnceAndSavedWithTheNextChange) {
    threeSets();
    open();
    rename(1, "Savings");
    EXPECT_TRUE(mAnnounced.empty()) << "no new name";
    rename(1, "Rainy Days");
    EXPECT_EQ(document().transactionSets()[1]->transactionSetName(), "Rainy Days");
    ASSERT_EQ(mAnnounced.size(), 1U);
    EXPECT_EQ(mAnnounced[0], document().transactionSets()[1]);
    EXPECT_EQ(mSaver.count(), 0);
    clickButton("Add");
    EXPECT_EQ(mSaver.count(), 1);
    commit(Qt::Key_Escape);
    window().close();
    EXPECT_EQ(mSaver.count(), 1) << "nothing was left to save";
}

TEST_F(CVTransactionSetControllerTest, ANewNameIsSavedAtTheLatestWhenTheWindowCloses) {
    threeSets();
    open();
    clickCell(1, SetColumn::Name);
    startRenaming("Rainy Days");
    window().close();
    EXPECT_EQ(document().transactionSets()[1]->transactionSetName(), "Rainy Days");
    EXPECT_EQ(mSaver.count(), 1);
}

TEST_F(CVTransactionSetControllerTest, AnEmptyOrATakenNameIsAcceptedWithARemark) {
    threeSets();
    open();
    rename(1, "cash");
    EXPECT_EQ(remark(), "Another transaction set has this name too.");
    rename(1, "");
    EXPECT_EQ(remark(), "This transaction set has no name.");
    EXPECT_EQ(document().transactionSets()[1]->transactionSetName(), "");
    rename(1, QStringLiteral("Sav\u0003ings"));
    EXPECT_EQ(document().transactionSets()[1]->transactionSetName(), "Savings");
    EXPECT_EQ(remark(), "");
}

TEST_F(CVTransactionSetControllerTest, CountsAreTakenOncePerRebuildAndNotForEveryCell) {
    threeSets();
    auto& controller = open();
    mBudget.transactionAt(0)->setTransactionSetID(12);
    EXPECT_EQ(column(SetColumn::Count), (QStringList{"1", "3", "0"}));
    controller.addTransactionSet();
    EXPECT_EQ(column(SetColumn::Count), (QStringList{"1", "2", "1", "0"}));
}

} // namespace
