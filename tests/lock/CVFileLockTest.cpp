#include "lock/CVFileLock.h"

#include "kit/ScratchHome.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace {

using FileLockOutcome = CVFileLock::Outcome;

class CVFileLockTest : public testing::Test {
protected:
    ScratchHome mHome;
    QString mPath = mHome.path("a lock");
};

TEST_F(CVFileLockTest, IsHeldUntilItsObjectGoesAndWithItTheFile) {
    {
        CVFileLock lock(mPath);
        EXPECT_EQ(lock.tryLock(), FileLockOutcome::Taken);
        EXPECT_EQ(lock.tryLock(), FileLockOutcome::Taken) << "its own already";
        EXPECT_EQ(CVFileLock(mPath).tryLock(), FileLockOutcome::HeldByOther);
        EXPECT_EQ(QFile::permissions(mPath) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    }
    EXPECT_FALSE(QFileInfo::exists(mPath));
    EXPECT_EQ(CVFileLock(mPath).tryLock(), FileLockOutcome::Taken);
}

TEST_F(CVFileLockTest, OneThatWasRefusedLeavesTheFileOfTheOther) {
    CVFileLock lock(mPath);
    ASSERT_EQ(lock.tryLock(), FileLockOutcome::Taken);
    ASSERT_EQ(CVFileLock(mPath).tryLock(), FileLockOutcome::HeldByOther);
    EXPECT_TRUE(QFileInfo::exists(mPath));
    EXPECT_EQ(CVFileLock(mPath).tryLock(), FileLockOutcome::HeldByOther);
}

TEST_F(CVFileLockTest, TheFileThatSomebodyElsePutInItsPlaceStays) {
    {
        CVFileLock lock(mPath);
        ASSERT_EQ(lock.tryLock(), FileLockOutcome::Taken);
        ASSERT_TRUE(QFile::rename(mPath, mPath + " moved"));
        QFile other(mPath);
        ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    }
    EXPECT_TRUE(QFileInfo::exists(mPath));
}

TEST_F(CVFileLockTest, AKilledProcessHoldsNothingAlthoughItsFileIsLeft) {
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        CVFileLock lock(mPath);
        const char word = lock.tryLock() == FileLockOutcome::Taken ? 't' : 'f';
        if (::write(ready[1], &word, 1) == 1)
            ::pause();
        ::_exit(1);
    }
    char word = 0;
    ASSERT_EQ(::read(ready[0], &word, 1), 1);
    EXPECT_EQ(word, 't');
    EXPECT_EQ(CVFileLock(mPath).tryLock(), FileLockOutcome::HeldByOther);
    ::kill(child, SIGKILL);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    EXPECT_TRUE(QFileInfo::exists(mPath));
    EXPECT_EQ(CVFileLock(mPath).tryLock(), FileLockOutcome::Taken);
    for (const int end : ready)
        ::close(end);
}

TEST_F(CVFileLockTest, WithoutAPathOrInAFolderThatIsNotThereNothingIsLocked) {
    EXPECT_EQ(CVFileLock("").tryLock(), FileLockOutcome::Impossible);
    EXPECT_EQ(CVFileLock(mPath + "/below").tryLock(), FileLockOutcome::Impossible);
}

} // namespace
