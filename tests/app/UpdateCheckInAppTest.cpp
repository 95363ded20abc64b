#include "ShellFixture.h"
#include "base/CVNotifications.h"
#include "base/CVSite.h"
#include "base/QBNotificationCenter.h"
#include "kit/NotificationCounter.h"

#include <QProgressDialog>
#include <QTabWidget>
#include <QWindow>

namespace {

using Manner = UpdateServer::Manner;

const QString kOffer =
    QStringLiteral("A newer version of Corvella is available from Quenby Labs LLC.  Do you want to upgrade your copy?");
const QString kUpToDate = QStringLiteral("Your copy of Corvella is up to date");
const QString kUnable = QStringLiteral("Unable to check for new software");
const QString kAboutChecks = QStringLiteral(
    "Corvella can automatically check for new and updated versions using its automatic update feature.  Select Update "
    "in Corvella Preferences to specify how frequently to check for updates.");
const QUrl kDownload(QStringLiteral("https://www.quenbylabs.example/download"));

class UpdateCheckInApp : public ShellFixture {
protected:
    /// Starts a check with the menu command and waits for the alert with its result.
    void check() {
        const auto before = mAlerts.shown().size();
        choose("Check for New Version…");
        EXPECT_TRUE(QTest::qWaitFor([&] { return mAlerts.shown().size() > before; }, kPatience));
    }

    void setFrequency(int frequency) {
        mHome.userDefaults().setInteger(CVDefaultsKeys::kCheckUpdatesAutomatically, frequency);
    }

    /// Starts the program and waits for the end of an automatic check, if there is one.
    void startAndWait() {
        const auto before = mServer.requests().size();
        start();
        const auto isOver = [&] {
            return mServer.requests().size() > before && (defaults().hasKey(CVDefaultsKeys::kLastCheckForUpdatesTime) ||
                                                          defaults().hasKey(CVDefaultsKeys::kUpdatedAppError));
        };
        static_cast<void>(QTest::qWaitFor(isOver, 1000));
    }

    [[nodiscard]] bool isUpdatePaneShown() const {
        const auto* const preferences = mDelegate->preferences();
        return preferences && preferences->isVisible() &&
               preferences->findChild<QTabWidget*>()->currentWidget()->objectName() == "UpdateID";
    }
};

TEST_F(UpdateCheckInApp, ANewerVersionIsOffered) {
    mServer.answerWith(updateReply("1.1"));
    start();
    mAlerts.answer({CVAlert::kDefault});
    check();
    const CVAlert& offer = mAlerts.shown().constLast();
    EXPECT_EQ(offer.title, kOffer);
    EXPECT_EQ(offer.message, kAboutChecks);
    EXPECT_EQ(offer.defaultButton, "Upgrade Now");
    EXPECT_EQ(offer.alternateButton, "Change Preferences...");
    EXPECT_EQ(offer.otherButton, "Ask Again Later");
    EXPECT_EQ(offer.escapeAnswer, CVAlert::kOther);
    EXPECT_EQ(mURLs.opened(), QList<QUrl>{kDownload});
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
}

TEST_F(UpdateCheckInApp, AskAgainLaterAndChangePreferencesKeepTheOfferWithoutAnotherRequest) {
    mServer.answerWith(updateReply("1.1"));
    start();
    mAlerts.answer({CVAlert::kOther, CVAlert::kAlternate, CVAlert::kDefault});
    check();
    EXPECT_EQ(mDelegate->preferences(), nullptr);
    check();
    EXPECT_TRUE(isUpdatePaneShown());
    check();
    EXPECT_EQ(titles(), (QStringList{kOffer, kOffer, kOffer}));
    EXPECT_EQ(mServer.requests().size(), 1);
    EXPECT_EQ(mURLs.opened(), QList<QUrl>{kDownload});
}

TEST_F(UpdateCheckInApp, TheRunningVersionIsUpToDateAndTheCheckCounts) {
    mServer.answerWith(updateReply("1.0"));
    start();
    NotificationCounter notifications(document().notificationCenter());
    QObject* sender = nullptr;
    document().notificationCenter().addObserver(
        CVNotifications::kCheckedForUpdates, &window(),
        [&sender](const QBNotification& notification) { sender = std::any_cast<QObject*>(notification.object); });
    check();
    const CVAlert& alert = mAlerts.shown().constLast();
    EXPECT_EQ(alert.title, kUpToDate);
    EXPECT_EQ(alert.message, kAboutChecks);
    EXPECT_EQ(alert.defaultButton, "OK");
    EXPECT_EQ(alert.alternateButton, "Change Preferences...");
    EXPECT_EQ(alert.escapeAnswer, CVAlert::kDefault);
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
    EXPECT_TRUE(defaults().hasKey(CVDefaultsKeys::kLastCheckForUpdatesTime));
    EXPECT_EQ(notifications.count(CVNotifications::kCheckedForUpdates), 1);
    EXPECT_EQ(sender, mDelegate.get());
    EXPECT_EQ(mDelegate->preferences(), nullptr);
    mAlerts.answer({CVAlert::kAlternate});
    check();
    EXPECT_TRUE(isUpdatePaneShown());
}

TEST_F(UpdateCheckInApp, WhatIsToldBelongsToTheWindowFromWhichTheUserAsked) {
    mServer.answerWith(updateReply("1.0"));
    start();
    check();
    mDelegate->showPreferences();
    const auto before = mAlerts.shown().size();
    preference<QAbstractButton>("Check Now")->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return mAlerts.shown().size() > before; }, kPatience));
    mServer.answerWith(updateReply("1.1"));
    preference<QAbstractButton>("Check Now")->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !mURLs.opened().isEmpty(); }, kPatience));
    EXPECT_EQ(mAlerts.owners(), (QStringList{"Corvella Main Window", "Corvella Preferences", "Corvella Preferences"}));
    EXPECT_EQ(mURLs.askers(), QStringList{"Corvella Preferences"});
}

TEST_F(UpdateCheckInApp, TheOfferAtTheLaunchBelongsToNoWindowAndItsPreferencesStandBeforeTheMainWindow) {
    mServer.answerWith(updateReply("1.1"));
    setFrequency(1);
    startAndWait();
    quit();
    mAlerts.answer({CVAlert::kAlternate});
    start();
    EXPECT_EQ(mAlerts.owners(), QStringList{QString()});
    EXPECT_TRUE(isUpdatePaneShown());
    EXPECT_TRUE(QTest::qWaitForWindowActive(mDelegate->preferences()));
    EXPECT_EQ(mDelegate->preferences()->windowHandle()->transientParent(), window().windowHandle());
    EXPECT_EQ(mDelegate->preferences()->windowType(), Qt::Dialog) << "of others the window manager is not told";
}

TEST_F(UpdateCheckInApp, EveryKindOfReplyHasItsOutcome) {
    struct Case {
        const char* what;
        const char* version;
        void (*prepare)(UpdateServer& server);
        QString title;
    };
    const Case cases[] = {
        {"good", "1.0", [](UpdateServer& s) { s.answerWith(updateReply("1.1")); }, kOffer},
        {"beta for a beta", "1.2b3", [](UpdateServer& s) { s.answerWith(updateReply("1.2b3", "1.2b4")); }, kOffer},
        {"no beta for a beta", "1.2b3", [](UpdateServer& s) { s.answerWith(updateReply("1.1")); }, kOffer},
        {"beta for a release", "1.0", [](UpdateServer& s) { s.answerWith(updateReply("1.0", "1.1b1")); }, kUpToDate},
        {"equal", "1.0", [](UpdateServer& s) { s.answerWith(updateReply("1.0")); }, kUpToDate},
        {"older", "1.0", [](UpdateServer& s) { s.answerWith(updateReply("0.9")); }, kOffer},
        {"missing entry", "1.0", [](UpdateServer& s) { s.answerWith(updateReply({}, "1.1b1")); }, kUnable},
        {"garbage", "1.0", [](UpdateServer& s) { s.answerWith("\1\2garbage\xff"); }, kUnable},
        {"HTML", "1.0", [](UpdateServer& s) { s.answerWith("<!DOCTYPE html><html><p>Sign in</p></html>"); }, kUnable},
        {"huge", "1.0", [](UpdateServer& s) { s.answerWith(QByteArray(1 << 21, ' ') + updateReply("1.1")); }, kUnable},
        {"slow", "1.0", [](UpdateServer& s) { s.answerWith(updateReply("1.1"), Manner::Dripping); }, kUnable},
        {"hanging", "1.0", [](UpdateServer& s) { s.answerWith({}, Manner::Hanging); }, kUnable},
        {"half-way", "1.0", [](UpdateServer& s) { s.answerWith(updateReply("1.1"), Manner::CutOff); }, kUnable},
        {"redirects", "1.0", [](UpdateServer& s) { s.redirectTo(s.address().toLatin1()); }, kUnable},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        mVersion = row.version;
        row.prepare(mServer);
        start();
        defaults().removeKey(CVDefaultsKeys::kUpdatedAppInfo);
        mAlerts.answer({row.title == kOffer ? CVAlert::kOther : CVAlert::kDefault});
        check();
        EXPECT_EQ(mAlerts.shown().constLast().title, row.title);
        EXPECT_EQ(defaults().hasKey(CVDefaultsKeys::kUpdatedAppError), row.title == kUnable);
        quit();
    }
}

TEST_F(UpdateCheckInApp, OfflineIsTold) {
    start();
    mDelegate->updates().setService({"http://127.0.0.1:1/", "x", "1.0"}, mLimits);
    check();
    const CVAlert& alert = mAlerts.shown().constLast();
    EXPECT_EQ(alert.title, kUnable);
    EXPECT_EQ(alert.message, "You must be connected to the internet to check for new software.\n\nThere may be a "
                             "problem with the Quenby Labs LLC web site.\n" +
                                 CVSite::webSite());
    EXPECT_EQ(alert.defaultButton, "OK");
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kLastCheckForUpdatesTime));
}

TEST_F(UpdateCheckInApp, ADownloadThatIsNoWebPageIsNotOpenedAndDoesNotStayInTheWay) {
    for (const char* const download : {"file:///usr/bin/true", "javascript:alert(1)", "", "mailto:x@y.example"}) {
        mServer.answerWith(updateReply("1.1", {}, download));
        start();
        check();
        EXPECT_EQ(mURLs.opened(), QList<QUrl>()) << download;
        EXPECT_EQ(mAlerts.shown().constLast().title, "The newer version could not be found") << download;
        EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo)) << download;
        quit();
    }
}

TEST_F(UpdateCheckInApp, TheSystemInformationIsSentOnlyWhenItIsWanted) {
    mServer.answerWith(updateReply("1.0"));
    start();
    check();
    EXPECT_TRUE(mServer.requests().constLast().startsWith("GET /check?app=com.quenbylabs.corvella&vers=1.0&sys="));
    EXPECT_FALSE(mServer.requests().constLast().contains("&cpu="));
    defaults().setBool(CVDefaultsKeys::kIncludeSysInfo, true);
    check();
    EXPECT_TRUE(mServer.requests().constLast().contains("&cpu="));
}

TEST_F(UpdateCheckInApp, WhileTheUserWaitsTheWindowLivesAndTheCheckCanBeCancelled) {
    mLimits = {};
    mServer.answerWith({}, Manner::Hanging);
    start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    const auto progress = [this] { return window().findChild<QProgressDialog*>(); };
    choose("Check for New Version…");
    EXPECT_TRUE(!progress() || !progress()->isVisible()) << "a short check shows none";
    choose("Check for New Version…");
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress() && progress()->isVisible(); }, kPatience));
    progress()->findChild<QAbstractButton*>()->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !progress() || !progress()->isVisible(); }, kPatience));
    QTest::qWait(100);
    EXPECT_EQ(titles(), QStringList());
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppError)) << "cancelled is not failed";
    EXPECT_EQ(mServer.requests().size(), 1) << "one check at a time";
    mServer.answerWith(updateReply("1.0"));
    check();
    EXPECT_EQ(titles(), QStringList{kUpToDate});
    EXPECT_EQ(progress(), nullptr);
}

TEST_F(UpdateCheckInApp, LaunchAsksNobodyUnlessTheCheckIsAutomatic) {
    mServer.answerWith(updateReply("1.1"));
    startAndWait();
    EXPECT_TRUE(mServer.requests().isEmpty());
    quit();
    setFrequency(0);
    mHome.userDefaults().setString(CVDefaultsKeys::kLastCheckForUpdatesTime, "01/01/10 00:00 +0000");
    startAndWait();
    EXPECT_TRUE(mServer.requests().isEmpty());
}

TEST_F(UpdateCheckInApp, AnAutomaticCheckSaysNothingAndItsOfferComesWithTheNextLaunch) {
    mServer.answerWith(updateReply("1.1"));
    setFrequency(1);
    startAndWait();
    EXPECT_EQ(mServer.requests().size(), 1);
    EXPECT_TRUE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
    EXPECT_EQ(titles(), QStringList());
    quit();
    mAlerts.answer({CVAlert::kOther});
    start();
    EXPECT_EQ(titles(), QStringList{kOffer});
    EXPECT_EQ(mServer.requests().size(), 1);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(UpdateCheckInApp, AFailedAutomaticCheckSaysNothingAndIsTriedAgainAtTheNextLaunch) {
    mServer.answerWith("garbage");
    setFrequency(1);
    for (int launch = 1; launch <= 2; ++launch) {
        startAndWait();
        EXPECT_EQ(mServer.requests().size(), launch);
        EXPECT_TRUE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppError));
        quit();
    }
    EXPECT_EQ(titles(), QStringList());
}

TEST_F(UpdateCheckInApp, DailyASecondLaunchOnTheSameDayAsksNobody) {
    // The time of a check comes from the real clock.
    QBDate::setToday(std::nullopt);
    mServer.answerWith(updateReply("1.0"));
    setFrequency(1);
    startAndWait();
    quit();
    startAndWait();
    EXPECT_EQ(mServer.requests().size(), 1);
    quit();
    QBDate::setToday(QBDate::date().dateByAddingYears(0, 0, 1));
    startAndWait();
    EXPECT_EQ(mServer.requests().size(), 2);
}

TEST_F(UpdateCheckInApp, ATimeOfTheLastCheckThatCannotBeReadCountsAsNone) {
    mServer.answerWith(updateReply("1.0"));
    setFrequency(3);
    mHome.userDefaults().setString(CVDefaultsKeys::kLastCheckForUpdatesTime, "once upon a time");
    start();
    EXPECT_TRUE(QTest::qWaitFor([this] { return mServer.requests().size() == 1; }, kPatience));
}

TEST_F(UpdateCheckInApp, AnOfferToTheVersionOfBeforeIsRemovedWithoutBeingShown) {
    mServer.answerWith(updateReply("1.1"));
    setFrequency(1);
    startAndWait();
    quit();
    mVersion = "1.1";
    startAndWait();
    EXPECT_EQ(titles(), QStringList());
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kUpdatedAppInfo));
}

TEST_F(UpdateCheckInApp, TheOfferAtTheLaunchMayLeadToThePreferencesBeforeThereIsAMainWindow) {
    mServer.answerWith(updateReply("1.1"));
    setFrequency(1);
    startAndWait();
    record(12, "Market", "Food");
    quit();
    mAlerts.answer({CVAlert::kAlternate});
    start();
    EXPECT_TRUE(isUpdatePaneShown());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(document().transactions().size(), 1U);
}

TEST_F(UpdateCheckInApp, QuittingDuringACheckNeitherHangsNorCrashes) {
    mLimits = {};
    setFrequency(1);
    for (const Manner manner : {Manner::Hanging, Manner::Silent, Manner::Dripping, Manner::Endless, Manner::Whole}) {
        for (const bool isAutomatic : {true, false}) {
            const auto before = mServer.requests().size();
            mServer.answerWith(updateReply("1.0"), manner);
            mHome.userDefaults().removeKey(CVDefaultsKeys::kLastCheckForUpdatesTime);
            setFrequency(isAutomatic ? 1 : 0);
            start();
            if (!isAutomatic)
                choose("Check for New Version…");
            EXPECT_TRUE(QTest::qWaitFor([&] { return mServer.requests().size() > before; }, kPatience));
            quit();
        }
    }
}

} // namespace
