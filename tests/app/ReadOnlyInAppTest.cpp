#include "ReadOnlyFixture.h"
#include "history/CVHistoryWindow.h"
#include "versions/CVVersionFolder.h"

#include <QComboBox>
#include <QSysInfo>

namespace {

class ReadOnlyInApp : public ReadOnlyFixture {};

TEST_F(ReadOnlyInApp, WhoeverOpensASecondTimeIsToldWhoHasItAndSeesItReadOnly) {
    startReadOnly();
    EXPECT_EQ(titles(), QStringList{"The budget is open elsewhere"});
    EXPECT_EQ(mAlerts.shown()[0].defaultButton, "Open Read-Only");
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window (Read-Only)");
    EXPECT_TRUE(tryAgainButton().isVisible());
    EXPECT_EQ(why(), "Read-only: anna has this budget open on “desk”.");
    EXPECT_FALSE(window().findChild<QWidget*>("mExpenseDate")->isVisible());
    EXPECT_EQ(list().model()->rowCount(), 3);
    EXPECT_EQ(window().findChild<QLabel*>("mSaveStatusText")->text(), "") << "nothing here is to be saved";
    quit();
}

TEST_F(ReadOnlyInApp, NothingCanBeEditedAndTheRestWorks) {
    startReadOnly();
    list().selectAll();
    const QStringList enabled = enabledCommands();
    for (const char* const command : {"Record", "Remove Transactions", "Edit Categories…", "Transaction Sets…"})
        EXPECT_FALSE(enabled.contains(command)) << command;
    for (const char* const command : {"Export Transactions…", "Earlier Versions…", "Find", "Detect Duplicates",
                                      "Preferences…", "Plan vs Actual", "Quit"})
        EXPECT_TRUE(enabled.contains(command)) << command;
    for (const QAction* const action : list().actions())
        EXPECT_EQ(action->isEnabled(), action->text() == "&Copy") << action->text().toStdString();
    EXPECT_FALSE(window().findChild<QPushButton*>("mRemoveTransactionButton")->isEnabled());
    for (int column = 0; column < list().model()->columnCount(); ++column) {
        const QModelIndex cell = list().model()->index(0, column);
        EXPECT_FALSE(cell.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) << column;
        list().setCurrentIndex(cell);
        QTest::keyClick(&list(), Qt::Key_Return);
        QTest::keyClick(&list(), Qt::Key_Space);
        QTest::keyClick(&list(), Qt::Key_Delete);
    }
    EXPECT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(document().transactions().size(), 3U);
    EXPECT_FALSE(document().transactions().front()->taxFlag());
    quit();
}

TEST_F(ReadOnlyInApp, TheSetsCanBeSwitchedAndNothingIsWritten) {
    makeBudget();
    annaOpens(dataFile());
    const QByteArray before = bytesOf(dataFile());
    // What another program's save has left half done is its own.
    write(QFileInfo(dataFile()).path() + "/.Corvella Data.corvella.saving-" + QSysInfo::machineHostName() +
              "-999999-abcdef",
          "<?xml");
    const QStringList names = this->names();
    start();
    auto& sets = *window().findChild<QComboBox*>("mTransactionSet");
    sets.setCurrentIndex(1);
    emit sets.activated(1);
    EXPECT_EQ(document().currentTransactionSet(), document().transactionSets()[1]->uniqueID());
    EXPECT_TRUE(document().workbookSave());
    EXPECT_TRUE(mDelegate->saves().waitForFinished().saved);
    quit();
    EXPECT_EQ(bytesOf(dataFile()), before);
    EXPECT_EQ(this->names(), names);
}

TEST_F(ReadOnlyInApp, ADamagedFileStaysWhereItIs) {
    makeBudget();
    const QByteArray half = bytesOf(dataFile()).first(300);
    write(dataFile(), half);
    annaOpens(dataFile());
    const QStringList names = this->names();
    start();
    QCoreApplication::processEvents();
    quit();
    EXPECT_EQ(bytesOf(dataFile()), half);
    EXPECT_EQ(this->names(), names);
}

TEST_F(ReadOnlyInApp, EarlierVersionsCanBeLookedAtButNotBroughtBack) {
    makeBudget();
    ASSERT_TRUE(CVVersionFolder(dataFile())
                    .keepCopy(dataFile(), CVVersionReason::Removal, QDateTime::currentDateTime().addDays(-1))
                    .ok());
    start();
    list().selectAll();
    mDelegate->mainWindow()->removeTransaction();
    quit();
    annaOpens(dataFile());
    start();
    choose("Earlier Versions…");
    CVHistoryWindow& history = *mDelegate->earlierVersions();
    auto& versions = *history.findChild<CVTableView*>("mVersionTable");
    auto& lines = *history.findChild<CVTableView*>("mLineTable");
    ASSERT_TRUE(QTest::qWaitFor([&] { return versions.model()->rowCount() > 1; }, kPatience));
    versions.selectRow(versions.model()->rowCount() - 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return lines.model()->rowCount() >= 3; }, kPatience));
    lines.selectAll();
    EXPECT_FALSE(history.findChild<QPushButton*>("mBringBackButton")->isEnabled());
    EXPECT_FALSE(history.findChild<QPushButton*>("mReturnButton")->isEnabled());
    EXPECT_TRUE(history.findChild<QPushButton*>("mSaveCopyButton")->isEnabled());
    const QString copy = mHome.path("copy.corvella");
    mPanels.answer(copy);
    QTest::mouseClick(history.findChild<QPushButton*>("mSaveCopyButton"), Qt::LeftButton);
    EXPECT_TRUE(QFile::exists(copy));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return history.findChild<QLabel*>("mProgress")->text() == "Read-only: nothing can be brought back."; },
        kPatience));
    quit();
}

TEST_F(ReadOnlyInApp, ThePreferencesOfTheProgramWorkAndThoseOfTheFileDoNot) {
    startReadOnly();
    mDelegate->showPreferences();
    for (const char* const button : {"Clear Data File", "Delete Earlier Versions"})
        EXPECT_FALSE(preference<QAbstractButton>(button)->isEnabled()) << button;
    preference<QAbstractButton>("Show All Categories")->click();
    EXPECT_TRUE(defaults().boolForKey(CVDefaultsKeys::kShowUnusedCategories));
    quit();
}

TEST_F(ReadOnlyInApp, ANewBudgetCanBeBegunElsewhereAndChanged) {
    startReadOnly();
    const QByteArray annas = bytesOf(dataFile());
    const QString fresh = mHome.path("new place") + "/Corvella Data.corvella";
    QDir().mkpath(mHome.path("new place"));
    mDelegate->showPreferences();
    mPanels.answer(mHome.path("new place"));
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_FALSE(mDelegate->isReadOnly());
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window");
    EXPECT_TRUE(isOwnLock(fresh));
    EXPECT_EQ(list().model()->rowCount(), 0);
    record(5, "Hall", "Food");
    quit();
    EXPECT_TRUE(bytesOf(fresh).contains("Hall"));
    EXPECT_EQ(bytesOf(dataFile()), annas);
    EXPECT_TRUE(QFile::exists(lockPath())) << "anna's";
}

TEST_F(ReadOnlyInApp, AlertsAboutTheFileSpeakOfNoSave) {
    makeBudget();
    const QByteArray whole = bytesOf(dataFile());
    annaOpens(dataFile());
    write(dataFile(), QByteArray(whole).replace("</CorvellaDocument>", "<!-- mine --></CorvellaDocument>"));
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return mAlerts.shown().size() == 2; }, kPatience));
    quit();
    write(dataFile(), whole.first(300));
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return mAlerts.shown().size() == 4; }, kPatience));
    quit();
    EXPECT_EQ(titles()[1], "Your data file was read only in part");
    EXPECT_EQ(titles()[3], "Your budget could not be read");
    for (const int place : {1, 3}) {
        const QString message = mAlerts.shown()[place].message;
        EXPECT_TRUE(message.contains("what is open read-only is not saved")) << message.toStdString();
        EXPECT_FALSE(message.contains("next save") || message.contains("saves for the first time"))
            << message.toStdString();
    }
}

TEST_F(ReadOnlyInApp, TryAgainInTheWindowReadsTheBudgetAgainAndLetsItBeChanged) {
    startReadOnly();
    QTest::mouseClick(&tryAgainButton(), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return why().contains("Still so at "); }, kPatience));
    EXPECT_TRUE(mDelegate->isReadOnly());
    write(dataFile(), bytesOf(dataFile()).replace("Baker", "Bakery"));
    annaQuits();
    mDelegate->mainWindow()->showAllSets();
    QTest::mouseClick(&tryAgainButton(), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !mDelegate->isReadOnly(); }, kPatience));
    QCoreApplication::processEvents();
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window (All Sets)") << "the sets that were shown are shown";
    EXPECT_FALSE(tryAgainButton().isVisible());
    EXPECT_TRUE(window().findChild<QWidget*>("mExpenseDate")->isVisible());
    EXPECT_EQ(remark(), "The budget was read again and can be changed now.");
    EXPECT_TRUE(isOwnLock(dataFile()));
    record(5, "Hall", "Food");
    quit();
    EXPECT_TRUE(bytesOf(dataFile()).contains("Bakery"));
    EXPECT_TRUE(bytesOf(dataFile()).contains("Hall"));
    EXPECT_EQ(mAlerts.shown().size(), 1) << "nothing was kept as another program's";
}

TEST_F(ReadOnlyInApp, WhatCannotBeReadAgainStaysReadOnlyAsItIs) {
    startReadOnly();
    annaQuits();
    // A file of more than 2 GiB is not read.
    QFile file(dataFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(3LL << 30));
    file.close();
    QTest::mouseClick(&tryAgainButton(), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([this] { return mAlerts.shown().size() == 2; }, kPatience));
    EXPECT_EQ(mAlerts.shown()[1].title, "The budget could not be read again");
    QCoreApplication::processEvents();
    EXPECT_TRUE(mDelegate->isReadOnly());
    EXPECT_EQ(list().model()->rowCount(), 3);
    EXPECT_FALSE(QFile::exists(lockPath())) << "who only looks at it has no lock";
    quit();
}

} // namespace
