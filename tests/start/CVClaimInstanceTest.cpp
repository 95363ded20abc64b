#include "start/CVClaimInstance.h"

#include "kit/Printers.h"
#include "kit/ProgressDelay.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"
#include "start/CVStartMessages.h"

#include <QApplication>
#include <QProgressDialog>

#include <gtest/gtest.h>

namespace {

using Outcome = CVRunningInstance::Outcome;
using namespace std::chrono_literals;

/// Releases its lock while it answers the alert that asks whether to try again.
class EndingAlerts final : public CVAlerts {
public:
    explicit EndingAlerts(std::unique_ptr<CVFileLock>& lock) : mLock(lock) {}
    CVAlert::Answer run(QWidget* /*window*/, const CVAlert& /*alert*/) override {
        mLock.reset();
        return CVAlert::kDefault;
    }

private:
    std::unique_ptr<CVFileLock>& mLock;
};

/// Notes the text of each progress panel that is shown, and cancels it if told to.
class PanelWatch final : public QObject {
public:
    enum class Cancel { No, Yes };

    explicit PanelWatch(Cancel cancel = Cancel::No) : mCancel(cancel) { qApp->installEventFilter(this); }
    [[nodiscard]] const QStringList& shown() const { return mShown; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const panel = qobject_cast<QProgressDialog*>(watched);
        if (panel && event->type() == QEvent::Show) {
            mShown.append(panel->labelText());
            if (mCancel == Cancel::Yes)
                panel->cancel();
        }
        return false;
    }

private:
    Cancel mCancel;
    QStringList mShown;
};

class CVClaimInstanceTest : public testing::Test {
protected:
    CVClaimInstanceTest() { EXPECT_EQ(mOther->tryLock(), CVFileLock::Outcome::Taken); }

    ScratchHome mHome;
    std::unique_ptr<CVFileLock> mOther = std::make_unique<CVFileLock>(mHome.path(".running.lock"));
    CVRunningInstance mRunning{mHome.path(), QString()};
    ScriptedAlerts mAlerts;
};

TEST_F(CVClaimInstanceTest, AsksNothingWhereNoOtherRuns) {
    mOther.reset();
    EXPECT_EQ(CVClaimInstance(mRunning, mAlerts, 0ms), Outcome::First);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVClaimInstanceTest, AsksAsOftenAsTheUserTriesAgainAndQuitsThen) {
    mAlerts.answer({CVAlert::kDefault, CVAlert::kDefault, CVAlert::kAlternate});
    EXPECT_EQ(CVClaimInstance(mRunning, mAlerts, 1ms), Outcome::OtherSilent);
    ASSERT_EQ(mAlerts.shown().size(), 3);
    const CVAlert& alert = mAlerts.shown().constFirst();
    EXPECT_EQ(alert.title, "Corvella is running already and does not answer");
    EXPECT_TRUE(alert.message.contains("not opened a second time")) << alert.message.toStdString();
    EXPECT_EQ(alert.defaultButton, "Try Again");
    EXPECT_EQ(alert.alternateButton, "Quit");
    EXPECT_EQ(alert.escapeAnswer, CVAlert::kAlternate);
}

TEST_F(CVClaimInstanceTest, StartsOnceTheOtherHasEnded) {
    EndingAlerts alerts(mOther);
    EXPECT_EQ(CVClaimInstance(mRunning, alerts, 1ms), Outcome::First);
}

TEST_F(CVClaimInstanceTest, ShowsThatItWaitsAtTheFirstAttemptAndAtEveryOther) {
    const ProgressDelay delay = ProgressDelay::none();
    PanelWatch watch;
    mAlerts.answer({CVAlert::kDefault, CVAlert::kAlternate});
    EXPECT_EQ(CVClaimInstance(mRunning, mAlerts, 120ms), Outcome::OtherSilent);
    EXPECT_EQ(watch.shown(), QStringList(2, "Waiting for the Corvella that is running already. Cancel leaves it alone "
                                            "and opens no second one."));
    EXPECT_EQ(mAlerts.shown().size(), 2);
}

TEST_F(CVClaimInstanceTest, CancelEndsTheWaitingWithoutAQuestion) {
    const ProgressDelay delay = ProgressDelay::none();
    PanelWatch watch(PanelWatch::Cancel::Yes);
    EXPECT_EQ(CVClaimInstance(mRunning, mAlerts, 1h), Outcome::OtherSilent);
    EXPECT_EQ(watch.shown().size(), 1);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST(CVStartMessages, AFileThatIsNotOpenedIsToldWithTheOneThatIs) {
    const CVAlert alert = CVStartMessages::notOpened({"theirs.corvella"}, "own/Corvella Data.corvella");
    EXPECT_TRUE(alert.message.contains("“theirs.corvella” is not opened.")) << alert.message.toStdString();
    EXPECT_TRUE(alert.message.contains("“own/Corvella Data.corvella”")) << alert.message.toStdString();
    EXPECT_EQ(alert.alternateButton, "");
    const CVAlert two = CVStartMessages::notOpened({"a", "b"}, "");
    EXPECT_TRUE(two.message.startsWith("“a”, “b” are not opened. To use")) << two.message.toStdString();
    EXPECT_FALSE(CVStartMessages::notOpened({"x"}, "").message.contains("“”"));
}

} // namespace
