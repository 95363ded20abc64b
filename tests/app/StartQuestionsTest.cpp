#include "ShellFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// A user whose stored data file is missing or cannot be read when the program starts.
class StartQuestions : public ShellFixture {
protected:
    /// Makes a budget with one transaction in the standard place, the only one that is known.
    void makeOther(const QString& payTo = "At home") {
        mHome.userDefaults().removeKey(CVDefaultsKeys::kDataFileLocation);
        start();
        record(5, payTo, "Other");
        quit();
        ASSERT_TRUE(QFile::exists(mOther));
    }

    /// Makes a budget with one transaction on a stick, and perhaps another one in the standard place.
    enum class Other : bool { No, Yes };
    void useStick(Other other) {
        makeOther("On the stick");
        ASSERT_TRUE(QDir().mkpath(mHome.path("stick")) && QFile::rename(mOther, mStored));
        if (other == Other::Yes)
            makeOther();
        mHome.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, mStored);
    }

    void pullStick() { ASSERT_TRUE(QFile::rename(mHome.path("stick"), mHome.path("pocket"))); }

    /// Starts without expecting a window.
    [[nodiscard]] bool launch() {
        mHome.userDefaults().synchronize();
        mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), mAlerts, mPanels);
        return mDelegate->applicationDidFinishLaunching();
    }

    [[nodiscard]] QStringList payees() const {
        QStringList payees;
        for (const auto& transaction : document().transactions())
            payees.append(transaction->payTo());
        return payees;
    }

    [[nodiscard]] std::optional<QString> stored() {
        mHome.userDefaults().synchronize();
        return QBUserDefaults(mHome.settingsStore()).stringForKey(CVDefaultsKeys::kDataFileLocation);
    }

    /// Every read through this link fails.
    void makeUnreadable() {
        ASSERT_TRUE(QFile::link("/proc/self/mem", mHome.path("link")));
        mHome.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, mHome.path("link"));
    }

    QString mStored = mHome.path("stick/Corvella Data.corvella");
    QString mOther = mHome.folders().applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella";
};

TEST_F(StartQuestions, TheMissingFileIsNamedBeforeAnotherIsOpened) {
    useStick(Other::Yes);
    pullStick();
    mAlerts.answer({CVAlert::kAlternate});
    EXPECT_FALSE(launch());
    EXPECT_EQ(mDelegate->mainWindow(), nullptr);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const CVAlert& question = mAlerts.shown()[0];
    EXPECT_EQ(question.title, "Your data file is missing");
    EXPECT_TRUE(question.message.contains("“" + mStored + "”")) << question.message.toStdString();
    EXPECT_TRUE(question.message.contains("“" + mOther + "”")) << question.message.toStdString();
    EXPECT_EQ(question.defaultButton, "Try Again");
    EXPECT_EQ(question.otherButton, "Open the Other One");
    EXPECT_EQ(question.alternateButton, "Quit");
    EXPECT_EQ(question.escapeAnswer, CVAlert::kAlternate);
    mDelegate.reset();
    EXPECT_EQ(stored(), mStored) << "nothing has changed";
}

TEST_F(StartQuestions, TheOtherOneIsOpenedOnlyWhenTheUserSaysSo) {
    useStick(Other::Yes);
    pullStick();
    mAlerts.answer({CVAlert::kOther});
    start();
    EXPECT_EQ(payees(), QStringList{"At home"});
    EXPECT_EQ(stored(), mOther);
    quit();
}

TEST_F(StartQuestions, ANewOneIsOfferedOnlyWhereThereIsNoOther) {
    useStick(Other::No);
    pullStick();
    ASSERT_FALSE(QFile::exists(mOther));
    mAlerts.answer({CVAlert::kOther});
    start();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].otherButton, "Start a New One");
    EXPECT_EQ(payees(), QStringList());
    EXPECT_EQ(stored(), std::nullopt);
    record(1, "New", "Other");
    quit();
    EXPECT_TRUE(QFile::exists(mOther));
    EXPECT_FALSE(QFile::exists(mStored));
}

TEST_F(StartQuestions, TryAgainFindsTheStickThatIsBack) {
    useStick(Other::Yes);
    pullStick();
    /// Puts the stick in while the second question is shown.
    class ReturningStick final : public CVAlerts {
    public:
        explicit ReturningStick(const ScratchHome& home) : mHome(home) {}
        CVAlert::Answer run(QWidget* /*window*/, const CVAlert& /*alert*/) override {
            if (++questions == 2) {
                EXPECT_TRUE(QFile::rename(mHome.path("pocket"), mHome.path("stick")));
            }
            return CVAlert::kDefault;
        }
        int questions = 0;

    private:
        const ScratchHome& mHome;
    } alerts(mHome);
    mHome.userDefaults().synchronize();
    mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), alerts, mPanels);
    ASSERT_TRUE(mDelegate->applicationDidFinishLaunching());
    EXPECT_EQ(alerts.questions, 2);
    EXPECT_EQ(payees(), QStringList{"On the stick"});
    EXPECT_EQ(stored(), mStored);
    quit();
}

TEST_F(StartQuestions, AFirstStartIsAskedNothing) {
    start();
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    quit();
}

TEST_F(StartQuestions, AFileThatCannotBeReadIsAskedAboutBeforeThereIsAWindow) {
    makeUnreadable();
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    EXPECT_FALSE(launch());
    EXPECT_EQ(mDelegate->mainWindow(), nullptr);
    ASSERT_EQ(mAlerts.shown().size(), 2) << "it was tried again";
    const CVAlert& question = mAlerts.shown()[1];
    EXPECT_EQ(question.title, "Your budget could not be read");
    EXPECT_TRUE(question.message.startsWith("“link” could not be read: Input/output error."))
        << question.message.toStdString();
    EXPECT_TRUE(question.message.contains(mHome.path())) << question.message.toStdString();
    EXPECT_EQ(question.defaultButton, "Try Again");
    EXPECT_EQ(question.otherButton, "Open Empty");
    EXPECT_EQ(question.alternateButton, "Quit");
}

TEST_F(StartQuestions, OpenEmptyOpensAnEmptyBudgetAndAsksNothingMore) {
    makeUnreadable();
    mAlerts.answer({CVAlert::kOther});
    start();
    QTest::qWait(0);
    EXPECT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(payees(), QStringList());
    EXPECT_GT(document().countOfCategories(), 20U);
    quit();
}

TEST_F(StartQuestions, TryAgainReadsAFileThatCanBeReadByThen) {
    makeOther();
    makeUnreadable();
    /// Repairs the file while the question is shown.
    class Repair final : public CVAlerts {
    public:
        Repair(QString from, QString to) : mFrom(std::move(from)), mTo(std::move(to)) {}
        CVAlert::Answer run(QWidget* /*window*/, const CVAlert& /*alert*/) override {
            ++questions;
            EXPECT_TRUE(QFile::remove(mTo) && QFile::copy(mFrom, mTo));
            return CVAlert::kDefault;
        }
        int questions = 0;

    private:
        QString mFrom;
        QString mTo;
    } alerts(mOther, mHome.path("link"));
    mHome.userDefaults().synchronize();
    mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), alerts, mPanels);
    ASSERT_TRUE(mDelegate->applicationDidFinishLaunching());
    EXPECT_EQ(alerts.questions, 1);
    EXPECT_EQ(payees(), QStringList{"At home"});
    quit();
}

} // namespace
