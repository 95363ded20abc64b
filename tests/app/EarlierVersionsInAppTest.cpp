#include "ShellFixture.h"
#include "app/CVConflictTeller.h"
#include "history/CVHistoryWindow.h"
#include "model/CVTransactionSet.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVVersionLimit.h"
#include "widgets/tables/CVTableView.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QLabel>
#include <QPushButton>

namespace {

/// The window with the earlier versions in the real program.
class EarlierVersionsInApp : public ShellFixture {
protected:
    /// A budget with three transactions that are in the file, without versions: several of one second have no order.
    void startWithBudget() {
        start();
        CVSetVersionLimit(defaults(), 0);
        for (const char* const payee : {"Market", "Baker", "Butcher"})
            record(12, payee, "Food");
        saved();
        CVSetVersionLimit(defaults(), 1024);
    }

    void removeAll() const {
        auto& table = *window().findChild<CVTableView*>("mTransactionTable");
        table.selectAll();
        mDelegate->mainWindow()->removeTransaction();
    }

    [[nodiscard]] CVHistoryWindow& history() const { return *mDelegate->earlierVersions(); }
    [[nodiscard]] CVTableView& versions() const { return *history().findChild<CVTableView*>("mVersionTable"); }
    [[nodiscard]] CVTableView& lines() const { return *history().findChild<CVTableView*>("mLineTable"); }
    void clickInHistory(const char* name) const {
        QTest::mouseClick(history().findChild<QPushButton*>(name), Qt::LeftButton);
    }
    [[nodiscard]] QPushButton& showButton() const { return *window().findChild<QPushButton*>("mShowVersionsButton"); }
    [[nodiscard]] QString remark() const {
        return mDelegate->mainWindow()->saveStatus().findChild<QLabel*>("mRemark")->text();
    }
    [[nodiscard]] bool waitForLines(int count) const {
        return QTest::qWaitFor([this, count] { return lines().model()->rowCount() == count; }, kPatience);
    }
    [[nodiscard]] QString keptWhy(int row) const { return versions().model()->index(row, 1).data().toString(); }
};

TEST_F(EarlierVersionsInApp, OpenFromTheMenuAndStayBesideTheMainWindow) {
    startWithBudget();
    choose("Earlier Versions…");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&history()));
    EXPECT_FALSE(history().isModal());
    EXPECT_EQ(history().windowHandle()->transientParent(), window().windowHandle());
    const CVHistoryWindow* const first = &history();
    choose("Earlier Versions…");
    EXPECT_EQ(&history(), first);
}

TEST_F(EarlierVersionsInApp, TheRemarkOnARemovalLeadsToTheVersionBeforeIt) {
    startWithBudget();
    EXPECT_TRUE(showButton().isHidden());
    removeAll();
    EXPECT_EQ(remark(), "3 transactions removed");
    ASSERT_TRUE(showButton().isVisible());
    EXPECT_EQ(showButton().accessibleName(), "Show Earlier Versions");
    // The save that keeps the version may still be under way: the window follows it.
    QTest::mouseClick(&showButton(), Qt::LeftButton);
    ASSERT_TRUE(waitForLines(3));
    EXPECT_EQ(versions().currentIndex().row(), 1);
    EXPECT_EQ(keptWhy(1), "before removing");
}

TEST_F(EarlierVersionsInApp, WhatIsBroughtBackIsInTheListAndNoLongerDiffers) {
    startWithBudget();
    removeAll();
    saved();
    choose("Earlier Versions…");
    ASSERT_TRUE(waitForLines(3));
    lines().selectRow(1);
    clickInHistory("mBringBackButton");
    EXPECT_EQ(document().transactions().size(), 1U);
    EXPECT_EQ(window().findChild<CVTableView*>("mTransactionTable")->model()->rowCount(), 1);
    EXPECT_TRUE(waitForLines(2));
}

TEST_F(EarlierVersionsInApp, AfterReturningTheWindowStaysWithTheNewBudget) {
    startWithBudget();
    removeAll();
    saved();
    choose("Earlier Versions…");
    ASSERT_TRUE(waitForLines(3));
    clickInHistory("mReturnButton");
    EXPECT_EQ(document().transactions().size(), 3U);
    saved();
    EXPECT_TRUE(history().isVisible());
    EXPECT_EQ(history().windowHandle()->transientParent(), window().windowHandle());
    ASSERT_TRUE(QTest::qWaitFor([this] { return versions().model()->rowCount() == 3; }, kPatience));
    EXPECT_TRUE(keptWhy(1) == "before returning to a version" || keptWhy(2) == "before returning to a version");
    quit();
}

TEST_F(EarlierVersionsInApp, AfterReturningAllSetsAreShownIfTheyWereAndTheVersionHasSeveral) {
    startWithBudget();
    CVSetVersionLimit(defaults(), 0);
    for (const quint32 id : {0U, 77U}) {
        const auto set = std::make_shared<CVTransactionSet>();
        set->setDocument(&document());
        set->setTransactionSetName(QString::number(id));
        set->setUniqueID(id);
        document().transactionSets().push_back(set);
    }
    mDelegate->mainWindow()->getStarted();
    document().workbookSave();
    saved();
    CVSetVersionLimit(defaults(), 1024);
    mDelegate->mainWindow()->showAllSets();
    removeAll();
    saved();
    choose("Earlier Versions…");
    ASSERT_TRUE(waitForLines(3));
    clickInHistory("mReturnButton");
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window (All Sets)");
    EXPECT_EQ(window().findChild<CVTableView*>("mTransactionTable")->model()->rowCount(), 3);
    saved();
    quit();
}

TEST_F(EarlierVersionsInApp, TheRemarkOnClearingSaysThatTheyAreKept) {
    startWithBudget();
    mDelegate->showPreferences();
    mAlerts.answer({CVAlert::kAlternate, CVAlert::kDefault, CVAlert::kDefault});
    preference<QAbstractButton>("Clear Data File")->click();
    ASSERT_TRUE(document().transactions().empty());
    EXPECT_EQ(remark(), "Your data was cleared: 3 transactions removed; earlier versions are kept");
    EXPECT_TRUE(showButton().isVisible());
}

TEST_F(EarlierVersionsInApp, WithoutKeptVersionsNoRemarkLeadsToThem) {
    startWithBudget();
    CVSetVersionLimit(defaults(), 0);
    removeAll();
    EXPECT_EQ(remark(), "3 transactions removed");
    EXPECT_TRUE(showButton().isHidden());
    mDelegate->showPreferences();
    mAlerts.answer({CVAlert::kAlternate, CVAlert::kDefault, CVAlert::kDefault});
    preference<QAbstractButton>("Clear Data File")->click();
    EXPECT_EQ(remark(), "Your data was cleared: 0 transactions removed");
    EXPECT_TRUE(showButton().isHidden());
}

TEST_F(EarlierVersionsInApp, TheRemarkOnClearingLeadsToFormerOnesWhenNoneAreWantedAnyMore) {
    startWithBudget();
    const QString dataFile = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    ASSERT_FALSE(CVKeptCopy::keep(dataFile, CVKeptReason::Unreadable, QDateTime::currentDateTime()).path.isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([this] { return mDelegate->conflictTeller().filesBeside().hasEarlier; }, kPatience));
    CVSetVersionLimit(defaults(), 0);
    mDelegate->showPreferences();
    mAlerts.answer({CVAlert::kAlternate, CVAlert::kDefault, CVAlert::kDefault});
    preference<QAbstractButton>("Clear Data File")->click();
    EXPECT_EQ(remark(), "Your data was cleared: 3 transactions removed; earlier versions are kept");
    EXPECT_TRUE(showButton().isVisible());
}

TEST_F(EarlierVersionsInApp, TheProgramEndsWhileTheyAreShown) {
    startWithBudget();
    removeAll();
    saved();
    choose("Earlier Versions…");
    ASSERT_TRUE(waitForLines(3));
    choose("Earlier Versions…");
    quit();
    EXPECT_EQ(mDelegate, nullptr);
}

} // namespace
