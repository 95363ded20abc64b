#include "PreferencesFixture.h"
#include "model/CVCategory.h"
#include "preferences/CVDataFilePane.h"

#include <QDialog>
#include <QDir>
#include <QFile>

namespace {

class DataFilePane : public PreferencesFixture {
protected:
    /// The path of the data file in a folder of the home; makes the folder.
    [[nodiscard]] QString dataFileIn(const QString& folder) const {
        QDir().mkpath(mHome.path(folder));
        return mHome.path(folder) + "/Corvella Data.corvella";
    }

    static void makeFile(const QString& path) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
    }

    /// Puts the budget into the folder "old".
    void useOldFolder() {
        makeFile(dataFileIn("old"));
        defaults().setString(CVDefaultsKeys::kDataFileLocation, dataFileIn("old"));
    }

    void changeTo(const QString& folder, std::initializer_list<CVAlert::Answer> answers = {}) {
        mPanels.answer(mHome.path(folder));
        mAlerts.answer(answers);
        click("Change Location");
    }

    [[nodiscard]] std::optional<QString> location() {
        return QBUserDefaults(mHome.settingsStore()).stringForKey(CVDefaultsKeys::kDataFileLocation);
    }

    [[nodiscard]] QString shownLocation() const { return control<QLineEdit>("Data File Location")->text(); }
};

TEST_F(DataFilePane, TheFolderIsShownWithTheHomeAsATilde) {
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", mHome.path().toUtf8());
    useOldFolder();
    open();
    EXPECT_EQ(shownLocation(), "~/old");
    qputenv("HOME", mHome.path("ol").toUtf8());
    open();
    EXPECT_EQ(shownLocation(), mHome.path("old")) << "a folder beside the home begins like it";
    qputenv("HOME", home);
    QFile::remove(dataFileIn("old"));
    open();
    EXPECT_EQ(shownLocation(), "Not set");
}

TEST_F(DataFilePane, ThePanelStartsWhereTheFileIs) {
    open();
    click("Change Location");
    useOldFolder();
    click("Change Location");
    ASSERT_EQ(mPanels.foldersAsked().size(), 2);
    EXPECT_EQ(mPanels.foldersAsked()[0].startFolder, "");
    EXPECT_EQ(mPanels.foldersAsked()[1].startFolder, mHome.path("old"));
    EXPECT_EQ(mSaver.count(), 0) << "both were cancelled";
}

TEST_F(DataFilePane, ALocationThatTheSettingsCannotKeepIsNotUsed) {
    useOldFolder();
    defaults().synchronize();
    open();
    ASSERT_TRUE(QFile::remove(mHome.path("settings.ini")) && QDir().mkpath(mHome.path("settings.ini")));
    const QString chosen = dataFileIn("new");
    changeTo("new");
    EXPECT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mSaver.count(), 0) << "what is saved there would be forgotten at the next start";
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), dataFileIn("old"));
    makeFile(chosen);
    changeTo("new", {CVAlert::kDefault});
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), dataFileIn("old"));
    ASSERT_TRUE(QDir().rmdir(mHome.path("settings.ini")));
}

TEST_F(DataFilePane, AFolderWithoutAFileGetsTheBudget) {
    useOldFolder();
    static_cast<void>(dataFileIn("new"));
    open();
    changeTo("new");
    EXPECT_EQ(location(), dataFileIn("new"));
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mHost.reopened, 0);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(DataFilePane, TheFolderThatHoldsTheFileChangesNothing) {
    useOldFolder();
    QFile::link(mHome.path("old"), mHome.path("link to old"));
    open();
    for (const char* const folder : {"old", "old/", "old/../old", "link to old"})
        changeTo(folder);
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), dataFileIn("old"));
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_EQ(mHost.reopened, 0);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    EXPECT_EQ(mPanels.foldersAsked().size(), 4);
}

TEST_F(DataFilePane, TheFolderInWhichTheFileIsMissingChangesNothing) {
    defaults().setString(CVDefaultsKeys::kDataFileLocation, dataFileIn("old"));
    QFile::link(mHome.path("old"), mHome.path("link to old"));
    open();
    for (const char* const folder : {"old", "link to old"})
        changeTo(folder);
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), dataFileIn("old"));
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(DataFilePane, AFileThatIsThereIsAskedAbout) {
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", mHome.path().toUtf8());
    useOldFolder();
    makeFile(dataFileIn("new"));
    open();
    changeTo("new", {CVAlert::kAlternate});
    qputenv("HOME", home);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const CVAlert& alert = mAlerts.shown().constFirst();
    EXPECT_EQ(alert.title, "Corvella file already exists");
    EXPECT_EQ(alert.message,
              "There is already a Corvella data file at '~/new'.\n\nWould you like to use this file instead of your "
              "current data, replace this file with your current data, or cancel and choose a different folder?");
    EXPECT_EQ(alert.defaultButton, "Use Chosen File");
    EXPECT_EQ(alert.alternateButton, "Cancel");
    EXPECT_EQ(alert.otherButton, "Replace Chosen File");
    EXPECT_EQ(alert.style, CVAlert::Style::Information);
    EXPECT_EQ(alert.escapeAnswer, CVAlert::kAlternate);
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), dataFileIn("old"));
    EXPECT_EQ(mSaver.count() + mHost.reopened, 0);
}

TEST_F(DataFilePane, UseChosenFileReadsItAndWritesNothing) {
    useOldFolder();
    makeFile(dataFileIn("new"));
    open();
    changeTo("new", {CVAlert::kDefault});
    EXPECT_EQ(location(), dataFileIn("new"));
    EXPECT_EQ(mHost.reopened, 1);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(DataFilePane, UseChosenFileKeepsTheOldPlaceWhenTheFileIsNotOpened) {
    useOldFolder();
    makeFile(dataFileIn("new"));
    open();
    mHost.notReopened = "";
    changeTo("new", {CVAlert::kDefault});
    EXPECT_EQ(mHost.reopened, 1);
    EXPECT_EQ(location(), dataFileIn("old"));
    EXPECT_EQ(mAlerts.shown().size(), 1) << "nothing is told about what the user wanted";
    mHost.notReopened = "Input/output error";
    changeTo("new", {CVAlert::kDefault});
    EXPECT_EQ(location(), dataFileIn("old"));
    ASSERT_EQ(mAlerts.shown().size(), 3);
    EXPECT_EQ(mAlerts.shown()[2].title, "The other file could not be read");
    EXPECT_TRUE(mAlerts.shown()[2].message.contains("could not be read: Input/output error."));
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(DataFilePane, UseChosenFileWaitsUntilNothingWouldBeLost) {
    useOldFolder();
    makeFile(dataFileIn("new"));
    open();
    mHost.failure = "The disk is full.";
    changeTo("new", {CVAlert::kDefault});
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), dataFileIn("old"));
    EXPECT_EQ(mHost.reopened, 0);
    ASSERT_EQ(mAlerts.shown().size(), 2);
    EXPECT_EQ(mAlerts.shown()[1].title, "Your last changes are not saved");
    EXPECT_TRUE(mAlerts.shown()[1].message.startsWith("The disk is full."));
}

TEST_F(DataFilePane, ReplaceChosenFileSavesTheBudgetThere) {
    useOldFolder();
    makeFile(dataFileIn("new"));
    open();
    changeTo("new", {CVAlert::kOther});
    EXPECT_EQ(location(), dataFileIn("new"));
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mHost.reopened, 0);
}

TEST_F(DataFilePane, TheEarlierVersionsMoveWithTheFile) {
    useOldFolder();
    makeFile(dataFileIn("taken"));
    open();
    const QString old = dataFileIn("old");
    changeTo("new");
    EXPECT_EQ(mHost.moved, QStringList{old + " > " + dataFileIn("new")});
    changeTo("taken", {CVAlert::kOther});
    EXPECT_EQ(mHost.moved.size(), 2) << "also to a file that is replaced";
    EXPECT_EQ(mAlerts.shown().size(), 1);
    changeTo("old", {CVAlert::kDefault});
    EXPECT_EQ(mHost.moved.size(), 2) << "the chosen file has versions of its own";
}

TEST_F(DataFilePane, EarlierVersionsThatCannotMoveAreTold) {
    useOldFolder();
    static_cast<void>(dataFileIn("new"));
    open();
    mHost.notMoved = "There is no room.";
    mPanels.answer(mHome.path("new"));
    click("Change Location");
    EXPECT_EQ(location(), dataFileIn("new"));
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Something of your budget is still in the old place");
    EXPECT_TRUE(mAlerts.shown()[0].message.startsWith("There is no room. Your data file is in its new place."));
}

TEST_F(DataFilePane, ADataFileThatIsNotMovedKeepsItsEarlierVersions) {
    useOldFolder();
    static_cast<void>(dataFileIn("new"));
    open();
    mHost.failure = "The disk is full.";
    changeTo("new");
    EXPECT_EQ(mHost.moved, QStringList());
}

TEST_F(DataFilePane, AFailedSaveLeavesTheLocationAsItWas) {
    for (const bool hadLocation : {false, true}) {
        if (hadLocation)
            useOldFolder();
        makeFile(dataFileIn("new"));
        open();
        mHost.failure = "The disk is full.";
        changeTo("new", {CVAlert::kOther});
        EXPECT_EQ(location(), hadLocation ? std::optional(dataFileIn("old")) : std::nullopt);
        EXPECT_EQ(defaults().hasKey(CVDefaultsKeys::kDataFileLocation), hadLocation);
        EXPECT_EQ(mAlerts.shown().constLast().title, "Your data file was not moved");
        EXPECT_EQ(shownLocation(), hadLocation ? mHome.path("old") : "Not set");
    }
}

TEST_F(DataFilePane, AWindowThatWaitsForAnAnswerComesFirst) {
    useOldFolder();
    static_cast<void>(dataFileIn("new"));
    open();
    QDialog waiting;
    waiting.setModal(true);
    waiting.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&waiting));
    auto* const pane = mWindow->findChild<CVDataFilePane*>();
    mPanels.answer(mHome.path("new"));
    pane->changeFileLocation();
    pane->clearDataFile();
    EXPECT_TRUE(mPanels.foldersAsked().isEmpty());
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(DataFilePane, ClearingNeedsTwoConfirmationsWithTheSafeAnswersWhereTheyAre) {
    open();
    mAlerts.answer({CVAlert::kAlternate, CVAlert::kDefault, CVAlert::kDefault});
    mDocument.insertCategoryName("My own");
    mDocument.setUniqueID(400);
    mNotifications.reset();
    click("Clear Data File");

    ASSERT_EQ(mAlerts.shown().size(), 3);
    const CVAlert& first = mAlerts.shown()[0];
    EXPECT_EQ(first.title, "Are you sure you want to clear your Corvella data file?");
    EXPECT_EQ(first.message, "Clearing your data file will remove ALL transactions and reset the category list to the "
                             "defaults.  You can't undo this action.");
    EXPECT_EQ(first.defaultButton, "No");
    EXPECT_EQ(first.alternateButton, "Yes");
    EXPECT_EQ(first.escapeAnswer, CVAlert::kDefault);
    const CVAlert& second = mAlerts.shown()[1];
    EXPECT_EQ(second.title, "Are you REALLY sure you want to clear your Corvella data file?");
    EXPECT_EQ(second.message, "If you continue, your Corvella data will be lost and you will have to start over.  This "
                              "is your last chance to stop.");
    EXPECT_EQ(second.defaultButton, "Yes, Continue");
    EXPECT_EQ(second.alternateButton, "No, Stop!");
    EXPECT_EQ(second.escapeAnswer, CVAlert::kAlternate);
    const CVAlert& third = mAlerts.shown()[2];
    EXPECT_EQ(third.title, "Corvella data cleared");
    EXPECT_EQ(third.message,
              "Your Corvella data has been cleared.  The category list has been reset to the default list.");
    EXPECT_EQ(third.defaultButton, "OK");
    EXPECT_EQ(third.style, CVAlert::Style::Information);

    EXPECT_EQ(mDocument.doesCategoryNameExist("My own"), nullptr);
    EXPECT_GT(mDocument.countOfCategories(), 20U);
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(announcements(), 1);
    EXPECT_EQ(defaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 10);
    EXPECT_EQ(control<QLineEdit>("Items in Pop-up")->text(), "10");
}

TEST_F(DataFilePane, EitherConfirmationStopsTheClearing) {
    open();
    mDocument.insertCategoryName("My own");
    mNotifications.reset();
    const std::initializer_list<CVAlert::Answer> answers[] = {
        {CVAlert::kDefault}, {CVAlert::kOther}, {CVAlert::kAlternate, CVAlert::kAlternate}};
    for (const auto& answer : answers) {
        mAlerts.answer(answer);
        click("Clear Data File");
        EXPECT_NE(mDocument.doesCategoryNameExist("My own"), nullptr);
    }
    EXPECT_EQ(mAlerts.shown().size(), 4);
    EXPECT_EQ(mSaver.count(), 0);
    EXPECT_EQ(announcements(), 0);
}

TEST_F(DataFilePane, APlaceIsClaimedBeforeItIsUsedAndSettledAfterwards) {
    useOldFolder();
    open();
    static_cast<void>(dataFileIn("new"));
    changeTo("new");
    EXPECT_EQ(mHost.claimed, QStringList{dataFileIn("new") + " replaced"});
    EXPECT_EQ(mHost.settled, 1);
    makeFile(dataFileIn("third"));
    changeTo("third", {CVAlert::kDefault});
    EXPECT_EQ(mHost.claimed.value(1), dataFileIn("third") + " opened");
    EXPECT_EQ(mHost.settled, 2);
    EXPECT_EQ(mHost.reopened, 1);
}

TEST_F(DataFilePane, APlaceThatIsNotFreeIsLeftAlone) {
    useOldFolder();
    open();
    mHost.isFree = false;
    makeFile(dataFileIn("new"));
    for (const CVAlert::Answer answer : {CVAlert::kDefault, CVAlert::kOther})
        changeTo("new", {answer});
    EXPECT_EQ(mHost.claimed.size(), 2);
    EXPECT_EQ(location(), dataFileIn("old"));
    EXPECT_EQ(mHost.reopened, 0);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(DataFilePane, OfABudgetThatIsOnlyLookedAtTheFileStaysAsItIs) {
    mSaver.setReadOnly();
    useOldFolder();
    open();
    for (const char* const name : {"Clear Data File", "Delete Earlier Versions"})
        EXPECT_FALSE(control<QAbstractButton>(name)->isEnabled()) << name;
    EXPECT_TRUE(control<QAbstractButton>("Keep Earlier Versions")->isEnabled());
}

TEST_F(DataFilePane, FromABudgetThatIsOnlyLookedAtAnotherOneCanBeOpened) {
    mSaver.setReadOnly();
    useOldFolder();
    makeFile(dataFileIn("new"));
    open();
    changeTo("new", {CVAlert::kAlternate});
    EXPECT_EQ(location(), dataFileIn("old"));
    changeTo("new", {CVAlert::kDefault});
    EXPECT_EQ(location(), dataFileIn("new"));
    EXPECT_EQ(mHost.claimed, QStringList(dataFileIn("new") + " opened"));
    EXPECT_EQ(mHost.reopened, 1);
    ASSERT_EQ(mAlerts.shown().size(), 2);
    EXPECT_EQ(mAlerts.shown()[0].title, "Open the budget in that folder?");
    EXPECT_EQ(mAlerts.shown()[0].otherButton, "") << "nothing there can be replaced";
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(DataFilePane, FromABudgetThatIsOnlyLookedAtANewOneIsBegunWhereThereIsNone) {
    mSaver.setReadOnly();
    useOldFolder();
    QDir().mkpath(mHome.path("new"));
    open();
    changeTo("new", {CVAlert::kAlternate});
    EXPECT_EQ(mHost.begun, 0);
    changeTo("new", {CVAlert::kDefault});
    EXPECT_EQ(location(), dataFileIn("new"));
    EXPECT_EQ(mHost.begun, 1);
    EXPECT_EQ(mAlerts.shown()[1].title, "Start a new budget in that folder?");
    EXPECT_EQ(mHost.moved, QStringList());
    EXPECT_EQ(mSaver.count(), 0) << "the budget that is open is not saved there";
}

} // namespace
