#include "ReadOnlyFixture.h"

namespace {

class BudgetLockInApp : public ReadOnlyFixture {};

TEST_F(BudgetLockInApp, QuitOpensNothing) {
    makeBudget();
    annaOpens(dataFile());
    mAlerts.answer({CVAlert::kAlternate});
    mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), mAlerts, mPanels);
    EXPECT_FALSE(mDelegate->applicationDidFinishLaunching());
    EXPECT_EQ(mDelegate->mainWindow(), nullptr);
}

TEST_F(BudgetLockInApp, TryAgainOpensWhatIsFreeByNow) {
    makeBudget();
    annaOpens(dataFile());
    mAlerts.answer({CVAlert::kOther, CVAlert::kOther});
    mAlerts.meanwhile([this] {
        if (mAlerts.shown().size() == 2)
            annaQuits();
    });
    start();
    EXPECT_EQ(mAlerts.shown().size(), 2);
    EXPECT_TRUE(mAlerts.shown()[1].message.startsWith("Corvella tried again at "));
    EXPECT_FALSE(mDelegate->isReadOnly());
    EXPECT_TRUE(isOwnLock(dataFile()));
    quit();
    EXPECT_FALSE(QFile::exists(lockPath()));
}

TEST_F(BudgetLockInApp, ALockThatCannotBeJudgedIsOverriddenAfterAQuestion) {
    makeBudget();
    write(lockPath(), "rubbish");
    mAlerts.answer({CVAlert::kFurther, CVAlert::kAlternate, CVAlert::kFurther, CVAlert::kDefault});
    start();
    EXPECT_EQ(titles(),
              (QStringList{"The budget may be open elsewhere", "Are you sure that the budget is open nowhere else?",
                           "The budget may be open elsewhere", "Are you sure that the budget is open nowhere else?"}));
    EXPECT_FALSE(mDelegate->isReadOnly());
    EXPECT_TRUE(isOwnLock(dataFile()));
    quit();
}

TEST_F(BudgetLockInApp, ALockThatADeadProgramHasLeftIsNothing) {
    makeBudget();
    CVLockHolder dead = CVLockHolder::ofThisProcess();
    dead.started += 1;
    write(lockPath(), dead.render());
    start();
    EXPECT_EQ(titles(), QStringList());
    EXPECT_TRUE(isOwnLock(dataFile()));
    quit();
}

TEST_F(BudgetLockInApp, ABudgetThatIsRecordedForTheFirstTimeGetsItsLockThen) {
    start();
    EXPECT_FALSE(QFile::exists(lockPath()));
    record(5, "Hall", "Food");
    EXPECT_TRUE(mDelegate->saves().waitForFinished().saved);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isOwnLock(dataFile()); }, kPatience));
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    quit();
    EXPECT_FALSE(QFile::exists(lockPath()));
}

TEST_F(BudgetLockInApp, WhoeverTakesTheLockAwayIsNamedAtTheNextSaveAndTheBudgetCanStillBeChanged) {
    makeBudget();
    start();
    annaOpens(dataFile());
    record(5, "Hall", "Food");
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return remark() == "anna has opened this budget on “desk” too."; }, kPatience));
    EXPECT_FALSE(mDelegate->isReadOnly());
    quit();
    EXPECT_TRUE(bytesOf(dataFile()).contains("Hall"));
    EXPECT_TRUE(QFile::exists(lockPath())) << "the other's";
}

TEST_F(BudgetLockInApp, TheLockMovesWithTheDataFile) {
    makeBudget();
    start();
    QDir().mkpath(mHome.path("new place"));
    const QString moved = mHome.path("new place") + "/Corvella Data.corvella";
    mDelegate->showPreferences();
    mPanels.answer(mHome.path("new place"));
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_TRUE(isOwnLock(moved));
    EXPECT_FALSE(QFile::exists(lockPath()));
    quit();
    EXPECT_FALSE(QFile::exists(CVBudgetLock(moved).path()));
}

TEST_F(BudgetLockInApp, AFileThatAnotherProgramHasOpenIsNotReplacedByMoving) {
    makeBudget();
    start();
    const QString theirs = mHome.path("theirs") + "/Corvella Data.corvella";
    write(theirs, "anna's");
    annaOpens(theirs);
    mDelegate->showPreferences();
    mPanels.answer(mHome.path("theirs"));
    // Replace Chosen File; then Try Again and Cancel.
    mAlerts.answer({CVAlert::kOther, CVAlert::kDefault, CVAlert::kAlternate});
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_EQ(titles(), (QStringList{"Corvella file already exists", "The budget is open elsewhere",
                                     "The budget is open elsewhere"}));
    EXPECT_EQ(bytesOf(theirs), "anna's");
    EXPECT_EQ(*defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), dataFile());
    EXPECT_TRUE(isOwnLock(dataFile()));
    EXPECT_FALSE(mDelegate->isReadOnly());
    quit();
}

TEST_F(BudgetLockInApp, UseChosenFileOpensReadOnlyWhatAnotherProgramHasOpen) {
    makeBudget();
    const QString theirs = mHome.path("theirs") + "/Corvella Data.corvella";
    write(theirs, bytesOf(dataFile()).replace("Baker", "Bakery"));
    start();
    annaOpens(theirs);
    mDelegate->showPreferences();
    mPanels.answer(mHome.path("theirs"));
    // Use Chosen File; then leave it alone.
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_FALSE(mDelegate->isReadOnly());
    EXPECT_TRUE(isOwnLock(dataFile()));
    mPanels.answer(mHome.path("theirs"));
    mAlerts.answer({CVAlert::kDefault, CVAlert::kDefault});
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_TRUE(mDelegate->isReadOnly());
    EXPECT_EQ(why(), "Read-only: anna has this budget open on “desk”.");
    EXPECT_FALSE(QFile::exists(lockPath()));
    EXPECT_FALSE(preference<QAbstractButton>("Clear Data File")->isEnabled());
    quit();
}

TEST_F(BudgetLockInApp, AFileThatCannotBeUsedAfterAllLeavesTheLockWhereItWas) {
    makeBudget();
    const QString other = mHome.path("other") + "/Corvella Data.corvella";
    QDir().mkpath(mHome.path("other"));
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(3LL << 30));
    start();
    mDelegate->showPreferences();
    mPanels.answer(mHome.path("other"));
    mAlerts.answer({CVAlert::kDefault});
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_EQ(titles().value(1), "The other file could not be read");
    EXPECT_TRUE(isOwnLock(dataFile()));
    EXPECT_FALSE(QFile::exists(CVBudgetLock(other).path()));
    quit();
}

TEST_F(BudgetLockInApp, TwoProgramsWithTwoHomesOnOneFileDoNotBothChangeIt) {
    makeBudget();
    start();
    ScratchHome anotherHome;
    ScriptedAlerts alerts;
    anotherHome.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, dataFile());
    anotherHome.userDefaults().synchronize();
    CVAppDelegate second(anotherHome.settingsStore(), anotherHome.folders(), alerts, mPanels);
    ASSERT_TRUE(second.applicationDidFinishLaunching());
    EXPECT_TRUE(second.isReadOnly());
    EXPECT_FALSE(mDelegate->isReadOnly());
    EXPECT_TRUE(second.mainWindow()->window()->close());
    quit();
}

} // namespace
