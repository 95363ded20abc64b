#include "lock/CVBudgetLock.h"

#include "kit/Printers.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

namespace {

using LockOutcome = CVBudgetLock::Outcome;

/// A holder on another computer, which only its signs of life tell of.
CVLockHolder holderElsewhere(const QString& token) {
    return {"laptop", "ben", "another machine", "another start", 7, 7, "pid:[7]", token};
}

class CVBudgetLockTest : public testing::Test {
protected:
    [[nodiscard]] CVBudgetLock lock() const { return CVBudgetLock(mDataFile); }
    [[nodiscard]] QString path() const { return mFolder.filePath(".Corvella Data.corvella.lock"); }
    [[nodiscard]] LockOutcome take() const { return lock().take().outcome; }
    [[nodiscard]] QString tokenInFile() const {
        const auto holder = CVLockHolder::parse(readFile(path()));
        return holder ? holder->token : QString();
    }
    /// Writes a lock whose last sign of life is that long ago.
    void leave(const CVLockHolder& holder, std::chrono::seconds ago = std::chrono::seconds(0)) const {
        writeFile(path(), holder.render());
        age(ago);
    }
    void age(std::chrono::seconds ago) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(
            file.setFileTime(QDateTime::currentDateTime().addSecs(-ago.count()), QFileDevice::FileModificationTime));
    }

    QTemporaryDir mFolder;
    QString mDataFile = mFolder.filePath("Corvella Data.corvella");
};

TEST_F(CVBudgetLockTest, IsMadeBesideTheDataFileAndGoesWithItsRelease) {
    CVBudgetLock first = lock();
    EXPECT_EQ(first.path(), path());
    EXPECT_EQ(first.take().outcome, LockOutcome::Taken);
    EXPECT_EQ(namesIn(mFolder.path()), QStringList{".Corvella Data.corvella.lock"});
    EXPECT_EQ(modeOf(path()), 0644) << "others may see who has it";
    EXPECT_EQ(CVLockHolder::parse(readFile(path()))->process, ::getpid());
    first.release();
    EXPECT_EQ(namesIn(mFolder.path()), QStringList());
}

TEST_F(CVBudgetLockTest, AllNamesOfADataFileHaveOneLock) {
    writeFile(mDataFile, "x");
    const QTemporaryDir elsewhere;
    makeLink(mDataFile, elsewhere.filePath("mine.corvella"));
    EXPECT_EQ(CVBudgetLock(elsewhere.filePath("mine.corvella")).path(), path());
    EXPECT_EQ(CVBudgetLock(mFolder.path() + "/./Corvella Data.corvella").path(), path());
}

TEST_F(CVBudgetLockTest, HoldsASecondOneOffAndSaysWhoHasIt) {
    CVBudgetLock first = lock();
    ASSERT_EQ(first.take().outcome, LockOutcome::Taken);
    const QByteArray bytes = readFile(path());
    const CVBudgetLock::Attempt second = lock().take();
    EXPECT_EQ(second.outcome, LockOutcome::Held);
    ASSERT_TRUE(second.holder);
    EXPECT_EQ(second.holder->process, ::getpid());
    EXPECT_LT(second.lastSign.secsTo(QDateTime::currentDateTime()), 60);
    EXPECT_EQ(readFile(path()), bytes);
    first.release();
    EXPECT_EQ(take(), LockOutcome::Taken);
}

TEST_F(CVBudgetLockTest, TakingItOnceMoreIsASignOfLife) {
    CVBudgetLock first = lock();
    ASSERT_EQ(first.take().outcome, LockOutcome::Taken);
    const QByteArray bytes = readFile(path());
    age(std::chrono::minutes(30));
    EXPECT_EQ(first.take().outcome, LockOutcome::Taken);
    EXPECT_EQ(readFile(path()), bytes);
    EXPECT_LT(QFileInfo(path()).lastModified().secsTo(QDateTime::currentDateTime()), 60);
}

TEST_F(CVBudgetLockTest, OneOfAnotherComputerCountsUntilFiveMinutesAfterItsLastSignOfLife) {
    leave(holderElsewhere("theirs"), std::chrono::seconds(240));
    const CVBudgetLock::Attempt attempt = lock().take();
    EXPECT_EQ(attempt.outcome, LockOutcome::Held);
    EXPECT_EQ(attempt.holder, holderElsewhere("theirs"));
    EXPECT_NEAR(static_cast<double>(attempt.lastSign.secsTo(QDateTime::currentDateTime())), 240, 30);
    leave(holderElsewhere("theirs"), std::chrono::seconds(340));
    EXPECT_EQ(take(), LockOutcome::Taken);
    EXPECT_NE(tokenInFile(), "theirs");
    EXPECT_EQ(namesIn(mFolder.path()).size(), 1) << "nothing is left";
}

TEST_F(CVBudgetLockTest, OneOfADeadProcessHereIsNothing) {
    const pid_t child = ::fork();
    if (child == 0) {
        CVBudgetLock killed(mDataFile);
        ::_exit(killed.take().outcome == LockOutcome::Taken ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(QFile::exists(path()));
    EXPECT_EQ(take(), LockOutcome::Taken);
}

struct LockObstacle {
    const char* name;
    void (*place)(const QString& path);
};

const std::array kDoubtfulLocks{
    LockObstacle{"empty", [](const QString& path) { writeFile(path, ""); }},
    LockObstacle{"garbage", [](const QString& path) { writeFile(path, QByteArray("\0\xff rubbish", 10)); }},
    LockObstacle{"large", [](const QString& path) { writeFile(path, QByteArray(100'000, 'x')); }},
    LockObstacle{"dangling link", [](const QString& path) { makeLink("nothing", path); }},
    LockObstacle{"cyclic link", [](const QString& path) { makeLink(path, path); }},
    LockObstacle{"link to a lock",
                 [](const QString& path) {
                     writeFile(path + ".target", CVLockHolder::ofThisProcess().render());
                     makeLink(path + ".target", path);
                 }},
    LockObstacle{"pipe", [](const QString& path) { ASSERT_EQ(::mkfifo(qPrintable(path), 0600), 0); }},
};

TEST_F(CVBudgetLockTest, WhatCannotBeJudgedIsDoubtfulUntilItIsOverridden) {
    for (const LockObstacle& obstacle : kDoubtfulLocks) {
        SCOPED_TRACE(obstacle.name);
        obstacle.place(path());
        const CVBudgetLock::Attempt attempt = lock().take();
        EXPECT_EQ(attempt.outcome, LockOutcome::Doubtful);
        EXPECT_FALSE(attempt.holder);
        CVBudgetLock overriding = lock();
        EXPECT_EQ(overriding.take(CVBudgetLock::Doubt::Overridden).outcome, LockOutcome::Taken);
        EXPECT_TRUE(QFileInfo(path()).isFile());
        EXPECT_EQ(overriding.take().outcome, LockOutcome::Taken);
        overriding.release();
        EXPECT_FALSE(QFileInfo::exists(path()));
    }
    EXPECT_EQ(CVLockHolder::parse(readFile(path() + ".target"))->process, ::getpid()) << "links are not followed";
}

TEST_F(CVBudgetLockTest, OneThatIsHeldIsNotOverridden) {
    leave(holderElsewhere("theirs"));
    EXPECT_EQ(lock().take(CVBudgetLock::Doubt::Overridden).outcome, LockOutcome::Held);
    EXPECT_EQ(tokenInFile(), "theirs");
}

TEST_F(CVBudgetLockTest, OneThatCannotBeReadIsNothingAfterFiveMinutes) {
    writeFile(path(), "");
    age(std::chrono::seconds(340));
    EXPECT_EQ(take(), LockOutcome::Taken);
}

TEST_F(CVBudgetLockTest, InTheFutureItIsDoubtful) {
    leave(holderElsewhere("theirs"), -std::chrono::hours(2));
    EXPECT_EQ(take(), LockOutcome::Doubtful);
}

TEST_F(CVBudgetLockTest, WhereNothingCanBeMadeThereIsNone) {
    EXPECT_EQ(CVBudgetLock(mFolder.filePath("missing/data")).take().outcome, LockOutcome::Impossible);
    writeFile(mDataFile, "x");
    EXPECT_EQ(CVBudgetLock(mDataFile + "/below").take().outcome, LockOutcome::Impossible);
    ASSERT_TRUE(QDir().mkpath(path() + "/within"));
    EXPECT_EQ(take(), LockOutcome::Doubtful);
    EXPECT_EQ(lock().take(CVBudgetLock::Doubt::Overridden).outcome, LockOutcome::Impossible);
    EXPECT_TRUE(QFileInfo::exists(path() + "/within"));
}

TEST_F(CVBudgetLockTest, AfterAnotherOneHasTakenItNothingIsReleasedAndTheOtherIsNamed) {
    CVBudgetLock first = lock();
    ASSERT_EQ(first.take().outcome, LockOutcome::Taken);
    leave(holderElsewhere("theirs"));
    const CVBudgetLock::Attempt attempt = first.take();
    EXPECT_EQ(attempt.outcome, LockOutcome::Held);
    EXPECT_EQ(attempt.holder->token, "theirs");
    first.release();
    EXPECT_EQ(tokenInFile(), "theirs");
}

TEST_F(CVBudgetLockTest, OneThatSomebodyHasRemovedIsMadeAnew) {
    CVBudgetLock first = lock();
    ASSERT_EQ(first.take().outcome, LockOutcome::Taken);
    const QString token = tokenInFile();
    ASSERT_TRUE(QFile::remove(path()));
    EXPECT_EQ(first.take().outcome, LockOutcome::Taken);
    EXPECT_EQ(tokenInFile(), token);
}

TEST_F(CVBudgetLockTest, WhatKilledProgramsOfThisComputerLeftGoes) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    // What a kill between making and naming leaves.
    const QString left = mFolder.filePath("..Corvella Data.corvella.lock.saving-%1-%2-abc123")
                             .arg(QSysInfo::machineHostName(), QString::number(child));
    writeFile(left, "x");
    const QString foreign = mFolder.filePath(".Corvella Data.corvella.saving-%1-%2-abc123")
                                .arg(QSysInfo::machineHostName(), QString::number(child));
    writeFile(foreign, "x");
    lock().removeLeftovers();
    EXPECT_FALSE(QFile::exists(left));
    EXPECT_TRUE(QFile::exists(foreign)) << "that of the data file is not the lock's";
}

/// Several take a stale lock at once; one alone may get it, and nobody may lose it again to another of them.
TEST_F(CVBudgetLockTest, OfSeveralThatTakeAStaleOneAtOnceOneAloneGetsIt) {
    constexpr int kRounds = 80;
    constexpr int kTakers = 6;
    for (int round = 0; round < kRounds; ++round) {
        if (round % 3 == 2)
            writeFile(path(), "");
        else
            writeFile(path(), holderElsewhere("stale").render());
        age(std::chrono::seconds(400));
        std::atomic<int> ready = 0;
        std::array<LockOutcome, kTakers> outcomes{};
        std::vector<CVBudgetLock> locks;
        for (int i = 0; i < kTakers; ++i)
            locks.push_back(lock());
        std::vector<std::thread> takers;
        for (std::size_t i = 0; i < kTakers; ++i)
            takers.emplace_back([&, i] {
                for (++ready; ready < kTakers;)
                    std::this_thread::yield();
                outcomes[i] = locks[i].take().outcome;
            });
        for (std::thread& taker : takers)
            taker.join();
        ASSERT_EQ(std::count(outcomes.begin(), outcomes.end(), LockOutcome::Taken), 1) << "round " << round;
        ASSERT_EQ(std::count(outcomes.begin(), outcomes.end(), LockOutcome::Held), kTakers - 1) << "round " << round;
        for (std::size_t i = 0; i < kTakers; ++i)
            ASSERT_EQ(locks[i].take().outcome, outcomes[i]) << "round " << round;
        for (CVBudgetLock& lock : locks)
            lock.release();
        ASSERT_EQ(namesIn(mFolder.path()), QStringList()) << "round " << round;
    }
}

/// Processes take it, work alone for a moment and release it or are killed.
TEST_F(CVBudgetLockTest, ProcessesThatTakeReleaseAndDieAreNeverTwoAtOnce) {
    constexpr int kProcesses = 4;
    constexpr int kTurns = 60;
    const QByteArray inside = mFolder.filePath("inside").toUtf8();
    std::array<pid_t, kProcesses> children{};
    for (pid_t& child : children) {
        child = ::fork();
        if (child != 0)
            continue;
        int taken = 0;
        for (int turn = 0; turn < kTurns * 50 && taken < kTurns; ++turn) {
            CVBudgetLock lock(mDataFile);
            if (lock.take().outcome != LockOutcome::Taken)
                continue;
            ++taken;
            // The kernel's lock tells whether another process is inside.
            const int file = ::open(inside.constData(), O_RDWR | O_CREAT, 0600);
            const bool isAlone = ::flock(file, LOCK_EX | LOCK_NB) == 0;
            if (!isAlone)
                ::_exit(2);
            ::close(file);
            lock.release();
        }
        ::_exit(taken > 0 ? 0 : 1);
    }
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_NE(WEXITSTATUS(status), 2) << "two had the lock at once";
    }
}

} // namespace
