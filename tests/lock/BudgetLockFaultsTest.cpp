#include "lock/CVBudgetLock.h"
#include "lock/CVLockKeeper.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchFiles.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <ostream>

namespace {

using FaultyCalls::Repeat;

/// What stands in the place of the lock before it is taken.
enum class LockBefore { Nothing, Stale, Own, Others };

struct LockRow {
    const char* name;
    LockBefore before;
    std::vector<FaultyCalls::Unsupported> unsupported = {};
};

void PrintTo(const LockRow& row, std::ostream* out) {
    *out << row.name;
}

CVLockHolder laptopsLock(const QString& token) {
    return {"laptop", "ben", "another machine", "another start", 7, 7, "pid:[7]", token};
}

/// A folder with a lock, or without one.
struct LockScene {
    explicit LockScene(LockBefore before) : lock(folder.filePath("Corvella Data.corvella")) {
        if (before == LockBefore::Own)
            (void)lock.take();
        if (before == LockBefore::Stale || before == LockBefore::Others)
            writeFile(lock.path(), laptopsLock("theirs").render());
        if (before == LockBefore::Stale) {
            QFile file(lock.path());
            (void)file.open(QIODevice::ReadWrite);
            file.setFileTime(QDateTime::currentDateTime().addSecs(-400), QFileDevice::FileModificationTime);
        }
        former = readFile(lock.path());
    }

    QTemporaryDir folder;
    CVBudgetLock lock;
    QByteArray former;
};

class BudgetLockFaults : public testing::TestWithParam<LockRow> {
protected:
    BudgetLockFaults() {
        if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
            qputenv("TMPDIR", "/dev/shm");
    }
    ~BudgetLockFaults() override { mTemporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", mTemporary); }

    /// Takes the lock with that fault; returns the calls that were made.
    static std::vector<FaultyCalls::Call> tryFault(const std::vector<FaultyCalls::Fault>& faults) {
        LockScene scene(GetParam().before);
        FaultyCalls::arm(scene.folder.path(), faults, GetParam().unsupported);
        const CVBudgetLock::Outcome outcome = scene.lock.take().outcome;
        const FaultyCalls::Record record = FaultyCalls::disarm();
        const QByteArray present = readFile(scene.lock.path());
        const auto holder = CVLockHolder::parse(present);
        if (GetParam().before == LockBefore::Others) {
            EXPECT_NE(outcome, CVBudgetLock::Outcome::Taken);
            EXPECT_EQ(present, scene.former);
        } else if (outcome == CVBudgetLock::Outcome::Taken) {
            EXPECT_TRUE(holder && holder->process == ::getpid());
        } else if (present != scene.former) {
            // Where neither link nor renaming are known, a full disk that refuses removals too leaves what cannot be
            // judged.
            EXPECT_TRUE((holder && holder->process == ::getpid()) || record.failed("unlink"));
        }
        if (!record.failed("unlink")) {
            EXPECT_LE(namesIn(scene.folder.path()).size(), 1) << namesIn(scene.folder.path()).join(' ').toStdString();
        }
        if (GetParam().before != LockBefore::Others && (holder || present.isNull())) {
            EXPECT_EQ(scene.lock.take().outcome, CVBudgetLock::Outcome::Taken) << "when all is well again";
        }
        return record.calls;
    }

    /// Whether a program was killed before its call of that number; false when it made fewer calls.
    [[nodiscard]] static bool takeAndKill(LockScene& scene, std::size_t at) {
        const pid_t child = ::fork();
        if (child == 0) {
            CVBudgetLock lock(scene.folder.filePath("Corvella Data.corvella"));
            FaultyCalls::arm(scene.folder.path(), {{at, FaultyCalls::kKilled}}, GetParam().unsupported);
            (void)lock.take();
            lock.release();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

    [[nodiscard]] static bool isMadeInPlace() { return GetParam().unsupported.size() == 2; }

    QByteArray mTemporary = qgetenv("TMPDIR");
};

TEST_P(BudgetLockFaults, takeNothingFromOthersAndLeaveNoPartOfALock) {
    const auto calls = tryFault({});
    int tried = 0;
    for (const FaultyCalls::Reasons& reasons : {FaultyCalls::whyWorkFails(), FaultyCalls::whyLooksFail()}) {
        for (std::size_t at = 0; at < calls.size(); ++at) {
            if (!reasons.contains(calls[at].name))
                continue;
            for (const int error : reasons.at(calls[at].name)) {
                // Another program that always has the lock in its hands is awaited for a second.
                if (error == EWOULDBLOCK)
                    continue;
                for (const Repeat repeat : {Repeat::Once, Repeat::SameForEver, Repeat::AllForEver}) {
                    SCOPED_TRACE(testing::Message() << calls[at].name << " at " << at << ", " << error << ", repeat "
                                                    << static_cast<int>(repeat));
                    tryFault({{at, error, repeat}});
                    ++tried;
                }
            }
        }
    }
    std::printf("%s: %zu calls, %d faults\n", GetParam().name, calls.size(), tried);
}

TEST_P(BudgetLockFaults, killedAtAnyCallNothingHindersTheNextProgram) {
    std::size_t kills = 0;
    for (;; ++kills) {
        SCOPED_TRACE(kills);
        LockScene scene(GetParam().before == LockBefore::Own ? LockBefore::Nothing : GetParam().before);
        if (!takeAndKill(scene, kills))
            break;
        const QByteArray present = readFile(scene.lock.path());
        const CVBudgetLock::Outcome next = scene.lock.take().outcome;
        if (GetParam().before == LockBefore::Others) {
            EXPECT_EQ(present, scene.former);
            EXPECT_EQ(next, CVBudgetLock::Outcome::Held);
        } else if (isMadeInPlace() && !present.isNull() && !CVLockHolder::parse(present)) {
            EXPECT_EQ(next, CVBudgetLock::Outcome::Doubtful);
        } else {
            EXPECT_EQ(next, CVBudgetLock::Outcome::Taken);
        }
        scene.lock.removeLeftovers();
        EXPECT_LE(namesIn(scene.folder.path()).size(), 1) << namesIn(scene.folder.path()).join(' ').toStdString();
    }
    std::printf("%s: killed at %zu calls\n", GetParam().name, kills);
    EXPECT_GT(kills, 3U);
}

const std::vector<FaultyCalls::Unsupported> kNoSecondNames{{"link", EPERM}};
const std::vector<FaultyCalls::Unsupported> kNoKernelLocks{{"flock", ENOLCK}};
const std::vector<FaultyCalls::Unsupported> kPlainStick{{"link", EPERM}, {"renameat2", EINVAL}};

const LockRow kLockRows[]{
    {"nothing", LockBefore::Nothing},
    {"nothingOnAStick", LockBefore::Nothing, kNoSecondNames},
    {"nothingOnAPlainStick", LockBefore::Nothing, kPlainStick},
    {"stale", LockBefore::Stale},
    {"staleWithoutKernelLocks", LockBefore::Stale, kNoKernelLocks},
    {"own", LockBefore::Own},
    {"others", LockBefore::Others},
};

INSTANTIATE_TEST_SUITE_P(all, BudgetLockFaults, testing::ValuesIn(kLockRows),
                         [](const testing::TestParamInfo<LockRow>& row) { return std::string(row.param.name); });

TEST(BudgetLockOnAFullDisk, IsNoneAndNothingIsLeft) {
    LockScene scene(LockBefore::Nothing);
    FaultyCalls::arm(scene.folder.path(), {}, {{"write", ENOSPC}});
    EXPECT_EQ(scene.lock.take().outcome, CVBudgetLock::Outcome::Impossible);
    FaultyCalls::disarm();
    EXPECT_EQ(namesIn(scene.folder.path()), QStringList());
}

TEST(BudgetLockOnAFullDisk, StillGivesSignsOfLife) {
    LockScene scene(LockBefore::Own);
    QFile file(scene.lock.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-400), QFileDevice::FileModificationTime));
    file.close();
    FaultyCalls::arm(scene.folder.path(), {}, {{"write", ENOSPC}});
    EXPECT_EQ(scene.lock.take().outcome, CVBudgetLock::Outcome::Taken);
    FaultyCalls::disarm();
    EXPECT_EQ(readFile(scene.lock.path()), scene.former);
    EXPECT_LT(QFileInfo(scene.lock.path()).lastModified().secsTo(QDateTime::currentDateTime()), 60);
}

TEST(BudgetLockOnAReadOnlyDisk, OthersAreHeldAndNothingIsMade) {
    LockScene others(LockBefore::Others);
    const std::vector<FaultyCalls::Unsupported> readOnly{
        {"link", EROFS}, {"renameat2", EROFS}, {"unlink", EROFS}, {"rename", EROFS}, {"write", EROFS}};
    LockScene nothing(LockBefore::Nothing);
    FaultyCalls::arm(nothing.folder.path(), {}, readOnly);
    EXPECT_EQ(nothing.lock.take().outcome, CVBudgetLock::Outcome::Impossible);
    FaultyCalls::disarm();
    FaultyCalls::arm(others.folder.path(), {}, readOnly);
    EXPECT_EQ(others.lock.take().outcome, CVBudgetLock::Outcome::Held);
    FaultyCalls::disarm();
    EXPECT_EQ(readFile(others.lock.path()), others.former);
}

TEST(BudgetLockOnAHangingDisk, KeepsTheProgramNeitherFromWorkingNorFromEnding) {
    LockScene scene(LockBefore::Own);
    FaultyCalls::arm(scene.folder.path(), {});
    auto gate = std::make_unique<FaultyCalls::Gate>("open");
    auto keeper = std::make_unique<CVLockKeeper>(scene.lock, true, std::chrono::milliseconds(1));
    FaultyCalls::Gate::waitForArrival();
    EXPECT_TRUE(keeper->isTaken()) << "the window goes on with what is known";
    keeper.reset();
    gate.reset();
    // The thread goes on by itself and lets the lock go.
    QElapsedTimer patience;
    patience.start();
    while (QFile::exists(scene.lock.path()) && !patience.hasExpired(20'000))
        ::usleep(1000);
    FaultyCalls::disarm();
    EXPECT_FALSE(QFile::exists(scene.lock.path()));
}

} // namespace
