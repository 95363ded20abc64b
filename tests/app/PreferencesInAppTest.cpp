#include "ShellFixture.h"
#include "kit/CancelledPanel.h"
#include "kit/ProgressDelay.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

namespace {

/// The preferences in the real program: the effect on the windows and the files.
class PreferencesInApp : public ShellFixture {
protected:
    void open() {
        start();
        mDelegate->showPreferences();
    }

    [[nodiscard]] QString dataFileIn(const QString& folder) const {
        QDir().mkpath(mHome.path(folder));
        return mHome.path(folder) + "/Corvella Data.corvella";
    }

    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    void click(const QString& name) const { preference<QAbstractButton>(name)->click(); }

    void changeTo(const QString& folder, std::initializer_list<CVAlert::Answer> answers = {}) {
        mPanels.answer(mHome.path(folder));
        mAlerts.answer(answers);
        click("Change Location");
    }

    [[nodiscard]] QStringList payees() const {
        const QAbstractItemModel& model = *window().findChild<QTableView*>("mTransactionTable")->model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, 2).data().toString());
        return texts;
    }

    void expectPresentBudget(const QString& place, const QByteArray& otherFile);

    /// Makes a budget with one transaction in another folder.
    void makeOtherBudget(const QString& folder) {
        open();
        record(5, "Other", "Other");
        static_cast<void>(dataFileIn(folder));
        changeTo(folder);
        quit();
        mHome.userDefaults().removeKey(CVDefaultsKeys::kDataFileLocation);
        QDir(mHome.folders().applicationSupport).removeRecursively();
        ASSERT_TRUE(bytesOf(dataFileIn(folder)).contains("Other"));
    }
};

TEST_F(PreferencesInApp, TheyOpenFromTheMenuOnceAndGoWithTheProgram) {
    start();
    choose("Preferences…");
    const auto* const preferences = mDelegate->preferences();
    ASSERT_NE(preferences, nullptr);
    EXPECT_TRUE(preferences->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    choose("Preferences…");
    EXPECT_EQ(mDelegate->preferences(), preferences);
    quit();
}

TEST_F(PreferencesInApp, TheMainWindowFollowsThem) {
    open();
    record(12, "Market", "Food");
    record(13, "Baker", "Food");
    window().findChild<QTabWidget*>("mMainTabView")->setCurrentIndex(1);
    const auto rows = [this] { return window().findChild<QTableView*>("mExpenseCategoryTable")->model()->rowCount(); };
    EXPECT_EQ(rows(), 1);
    click("Show All Categories");
    EXPECT_GT(rows(), 20);
    const auto firstDay = [this] {
        return window()
            .findChild<QTableView*>("mExpensePeriodTable")
            ->model()
            ->headerData(0, Qt::Horizontal)
            .toString();
    };
    EXPECT_EQ(firstDay(), "Sunday");
    auto* const days = preference<QComboBox>("First Day of Week");
    days->setFocus();
    QTest::keyClick(days, Qt::Key_Down);
    EXPECT_EQ(firstDay(), "Monday");

    const auto items = [this] { return window().findChild<QComboBox*>("mExpenseToFromComboBox")->count(); };
    EXPECT_EQ(items(), 2);
    auto* const field = preference<QLineEdit>("Items in Pop-up");
    field->setText("1");
    EXPECT_EQ(defaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 1);
    EXPECT_EQ(items(), 1);
}

TEST_F(PreferencesInApp, MovingTheFileTakesTheBudgetAlongAndLaterChangesToo) {
    open();
    record(12, "Market", "Food");
    const QString before = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    static_cast<void>(dataFileIn("new place"));
    changeTo("new place");
    EXPECT_TRUE(bytesOf(dataFileIn("new place")).contains("Market"));
    EXPECT_EQ(mAlerts.shown().size(), 0);
    const QByteArray left = bytesOf(before);
    record(13, "Baker", "Food");
    quit();
    EXPECT_TRUE(bytesOf(dataFileIn("new place")).contains("Baker"));
    EXPECT_EQ(bytesOf(before), left);
    start();
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market"}));
}

TEST_F(PreferencesInApp, UseChosenFileShowsItInPlaceOfThePresentOne) {
    makeOtherBudget("other");
    const QByteArray other = bytesOf(dataFileIn("other"));
    open();
    record(12, "Market", "Food");
    const QString before = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    window().resize(700, 555);
    changeTo("other", {CVAlert::kDefault});
    EXPECT_EQ(payees(), QStringList{"Other"});
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().size(), QSize(700, 555)) << "the window is where it was";
    EXPECT_EQ(bytesOf(dataFileIn("other")), other);
    EXPECT_TRUE(bytesOf(before).contains("Market"));
    record(13, "Baker", "Food");
    EXPECT_EQ(payees(), (QStringList{"Other", "Baker"}));
    EXPECT_TRUE(mDelegate->preferences()->isVisible());
    // The preferences now use the new document.
    mAlerts.answer({CVAlert::kAlternate, CVAlert::kDefault});
    click("Clear Data File");
    EXPECT_EQ(payees(), QStringList());
    quit();
    EXPECT_TRUE(bytesOf(before).contains("Market"));
    EXPECT_FALSE(bytesOf(dataFileIn("other")).contains("Baker"));
}

/// The present budget stays in its window and in its place.
void PreferencesInApp::expectPresentBudget(const QString& place, const QByteArray& otherFile) {
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), place);
    EXPECT_EQ(preference<QLineEdit>("Data File Location")->toolTip(), place);
    EXPECT_EQ(bytesOf(dataFileIn("other")), otherFile);
    EXPECT_EQ(QDir(mHome.path("other")).entryList(QDir::Files).size(), 1);
    record(13, "Baker", "Food");
    quit();
    EXPECT_TRUE(bytesOf(place).contains("Baker"));
    EXPECT_EQ(bytesOf(dataFileIn("other")), otherFile);
}

TEST_F(PreferencesInApp, TheReadingOfTheChosenFileCanBeCancelled) {
    makeOtherBudget("other");
    const QByteArray other = bytesOf(dataFileIn("other"));
    open();
    record(12, "Market", "Food");
    const QString before = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    const ProgressDelay delay = ProgressDelay::none();
    const CancelledPanel cancelled;
    changeTo("other", {CVAlert::kDefault});
    EXPECT_EQ(mAlerts.shown().size(), 1) << "nothing is told about what the user wanted";
    expectPresentBudget(before, other);
}

TEST_F(PreferencesInApp, AChosenFileThatCannotBeReadLeavesThePresentBudget) {
    open();
    record(12, "Market", "Food");
    const QString before = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    // Every read through this link fails.
    ASSERT_TRUE(QFile::link("/proc/self/mem", dataFileIn("other")));
    changeTo("other", {CVAlert::kDefault});
    ASSERT_EQ(mAlerts.shown().size(), 2);
    EXPECT_EQ(mAlerts.shown()[1].title, "The other file could not be read");
    EXPECT_TRUE(mAlerts.shown()[1].message.contains("could not be read: Input/output error."))
        << mAlerts.shown()[1].message.toStdString();
    expectPresentBudget(before, {});
}

TEST_F(PreferencesInApp, AChosenFileThatGoesAwayMeanwhileLeavesThePresentBudget) {
    makeOtherBudget("other");
    open();
    record(12, "Market", "Food");
    const QString before = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    quit();
    /// Pulls the stick while the question is shown.
    class PulledStick final : public CVAlerts {
    public:
        explicit PulledStick(QString file) : mFile(std::move(file)) {}
        CVAlert::Answer run(QWidget* /*window*/, const CVAlert& alert) override {
            messages.append(alert.message);
            QFile::remove(mFile);
            return CVAlert::kDefault;
        }
        QStringList messages;

    private:
        QString mFile;
    } alerts(dataFileIn("other"));
    mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), alerts, mPanels);
    ASSERT_TRUE(mDelegate->applicationDidFinishLaunching());
    mDelegate->showPreferences();
    changeTo("other");
    ASSERT_EQ(alerts.messages.size(), 2);
    EXPECT_TRUE(alerts.messages[1].contains("could not be read: it is not there any more."))
        << alerts.messages[1].toStdString();
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), before);
    EXPECT_EQ(payees(), QStringList{"Market"});
    quit();
}

TEST_F(PreferencesInApp, ADamagedChosenFileLeavesBothFilesAsTheyAre) {
    open();
    record(12, "Market", "Food");
    const auto before = defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    const QByteArray damaged = "<?xml version=\"1.0\"?>\n<CorvellaDocument><Transaction></CorvellaDocument>";
    write(dataFileIn("other"), damaged);
    changeTo("other", {CVAlert::kDefault});
    ASSERT_TRUE(QTest::qWaitFor([this] { return mAlerts.shown().size() == 2; }));
    EXPECT_EQ(mAlerts.shown()[1].title, "The other file could not be read");
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), before);
    EXPECT_EQ(bytesOf(dataFileIn("other")), damaged);
    EXPECT_EQ(QDir(mHome.path("other")).entryList({"*.corvella"}, QDir::Files).size(), 1);
    quit();
}

TEST_F(PreferencesInApp, ReplaceChosenFileSavesThereAndSaysThatItKeptWhatStoodThere) {
    open();
    record(12, "Market", "Food");
    write(dataFileIn("other"), "somebody's bytes");
    changeTo("other", {CVAlert::kOther});
    EXPECT_TRUE(bytesOf(dataFileIn("other")).contains("Market"));
    const QStringList kept = QDir(mHome.path("other")).entryList({"*(replaced when moved *"});
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(bytesOf(mHome.path("other/" + kept[0])), "somebody's bytes");
    EXPECT_EQ(payees(), QStringList{"Market"});
    ASSERT_TRUE(QTest::qWaitFor([this] { return mAlerts.shown().size() == 2; }));
    const CVAlert& told = mAlerts.shown()[1];
    EXPECT_EQ(told.title, "The file that you replaced was kept");
    EXPECT_EQ(mAlerts.owners()[1], "Corvella Preferences") << "where the user is";
    EXPECT_EQ(told.style, CVAlert::Style::Information);
    EXPECT_TRUE(told.message.contains(kept[0])) << told.message.toStdString();
    EXPECT_FALSE(told.message.contains("not read")) << told.message.toStdString();
    quit();
}

TEST_F(PreferencesInApp, AFailedSaveKeepsTheFileWhereItWas) {
    open();
    record(12, "Market", "Food");
    const QString before = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    // The folder does not exist any more at the save.
    mPanels.answer(mHome.path("gone"));
    click("Change Location");
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kDataFileLocation), before);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Your data file was not moved");
    EXPECT_TRUE(mAlerts.shown()[0].message.contains(mHome.path("gone")));
    record(13, "Baker", "Food");
    quit();
    EXPECT_EQ(mAlerts.shown().size(), 1) << "all is saved, in the old place";
    EXPECT_TRUE(bytesOf(before).contains("Baker"));
}

TEST_F(PreferencesInApp, ClearingEmptiesTheWindowAndTheFile) {
    open();
    record(12, "Market", "Food of my own");
    const QString path = *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    mAlerts.answer({CVAlert::kAlternate, CVAlert::kDefault});
    click("Clear Data File");
    EXPECT_EQ(payees(), QStringList());
    auto* const categories = window().findChild<QComboBox*>("mExpenseCategoryComboBox");
    EXPECT_EQ(categories->findText("Food of my own"), -1);
    EXPECT_GT(categories->count(), 20);
    EXPECT_EQ(window().findChild<QComboBox*>("mExpenseToFromComboBox")->count(), 0);
    quit();
    EXPECT_FALSE(bytesOf(path).contains("Market"));
    EXPECT_FALSE(bytesOf(path).contains("Food of my own"));
}

TEST_F(PreferencesInApp, SettingsThatCannotBeReadAreAbsentAndTheProgramStarts) {
    write(mHome.path("settings.ini"), QByteArray("\0\xFF[[[=%%%\n=\n", 12) + QByteArray(1000, '\xFE'));
    open();
    EXPECT_FALSE(preference<QCheckBox>("Clear Fields")->isChecked());
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    quit();
}

TEST_F(PreferencesInApp, SettingsThatCannotBeWrittenDoNotDisturbTheWork) {
    QFile::remove(mHome.path("settings.ini"));
    ASSERT_TRUE(QDir().mkpath(mHome.path("settings.ini")));
    open();
    record(12, "Market", "Food");
    EXPECT_EQ(payees(), QStringList{"Market"});
    click("Clear Fields");
    EXPECT_TRUE(defaults().boolForKey(CVDefaultsKeys::kClearFields));
    quit();
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

} // namespace
