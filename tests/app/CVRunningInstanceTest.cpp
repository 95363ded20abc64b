#include "app/CVRunningInstance.h"

#include "kit/ScratchHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace {

using Outcome = CVRunningInstance::Outcome;
using namespace std::chrono_literals;

class CVRunningInstanceTest : public testing::Test {
protected:
    /// What another start hears while this program's event loop runs.
    Outcome startAgain() const {
        auto outcome = std::async(std::launch::async, [this] { return CVRunningInstance(mFolder).claim(5s); });
        EXPECT_TRUE(QTest::qWaitFor([&outcome] { return outcome.wait_for(0s) == std::future_status::ready; }, 10'000));
        return outcome.get();
    }

    void write(const QString& name, const QByteArray& bytes) const {
        ASSERT_TRUE(QDir().mkpath(mFolder));
        QFile file(mFolder + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    ScratchHome mHome;
    QString mFolder = mHome.path("data/Quenby Labs/Corvella");
};

TEST_F(CVRunningInstanceTest, TheSecondHasTheFirstShown) {
    CVRunningInstance first(mFolder);
    const QSignalSpy shown(&first, &CVRunningInstance::showRequested);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
    EXPECT_EQ(shown.size(), 2);
}

TEST_F(CVRunningInstanceTest, TheNextIsTheFirstWhenTheFirstHasEnded) {
    {
        CVRunningInstance first(mFolder);
        ASSERT_EQ(first.claim(0s), Outcome::First);
    }
    EXPECT_EQ(QDir(mFolder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
              QStringList());
    EXPECT_EQ(CVRunningInstance(mFolder).claim(0s), Outcome::First);
}

TEST_F(CVRunningInstanceTest, AProgramOfAnotherFolderIsNoOther) {
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    EXPECT_EQ(CVRunningInstance(mHome.path("elsewhere")).claim(0s), Outcome::First);
}

TEST_F(CVRunningInstanceTest, SaysInTimeThatTheOtherIsSilent) {
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    QElapsedTimer timer;
    timer.start();
    // Without an event loop nobody answers.
    EXPECT_EQ(CVRunningInstance(mFolder).claim(300ms), Outcome::OtherSilent);
    EXPECT_GE(timer.elapsed(), 290);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(CVRunningInstanceTest, WaitsForOneThatIsJustEnding) {
    auto first = std::make_unique<CVRunningInstance>(mFolder);
    ASSERT_EQ(first->claim(0s), Outcome::First);
    std::atomic<bool> isWaiting = false;
    auto second = std::async(std::launch::async, [this, &isWaiting] {
        isWaiting = true;
        return CVRunningInstance(mFolder).claim(5s);
    });
    while (!isWaiting)
        std::this_thread::yield();
    first.reset();
    EXPECT_EQ(second.get(), Outcome::First);
}

TEST_F(CVRunningInstanceTest, WhatACrashLeftBehindDoesNotCount) {
    // No process has this number.
    write("/.running.lock", "2147483646\ncorvella\n" + QSysInfo::machineHostName().toUtf8() + '\n');
    write("/.running", "");
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
}

TEST_F(CVRunningInstanceTest, OfSeveralAtOnceOneAloneIsTheFirst) {
    constexpr int kStarts = 8;
    std::atomic<int> decided = 0;
    std::vector<std::future<Outcome>> starts;
    for (int i = 0; i < kStarts; ++i)
        starts.push_back(std::async(std::launch::async, [this, &decided] {
            CVRunningInstance running(mFolder);
            const Outcome outcome = running.claim(100ms);
            // It stays until all have asked.
            for (++decided; decided < kStarts;)
                std::this_thread::yield();
            return outcome;
        }));
    int firsts = 0;
    for (auto& start : starts)
        firsts += start.get() == Outcome::First ? 1 : 0;
    EXPECT_EQ(firsts, 1);
}

TEST_F(CVRunningInstanceTest, WhereNothingCanBeLockedTheProgramStartsAllTheSame) {
    write("/a file", "");
    EXPECT_EQ(CVRunningInstance(mFolder + "/a file/below").claim(0s), Outcome::First);
}

} // namespace
