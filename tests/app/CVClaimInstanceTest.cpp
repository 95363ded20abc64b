#include "app/CVClaimInstance.h"

#include "app/CVStartMessages.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"

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
