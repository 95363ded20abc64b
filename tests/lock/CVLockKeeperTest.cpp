#include "lock/CVLockKeeper.h"

#include "storage/ScratchFiles.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

using namespace std::chrono_literals;

/// Runs the event loop until something is so; false when that takes too long.
template <typename Condition>
bool waitFor(Condition isSo) {
    const QDeadlineTimer patience(20s);
    while (!isSo() && !patience.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return isSo();
}

class CVLockKeeperTest : public testing::Test {
protected:
    std::unique_ptr<CVLockKeeper> keep(std::chrono::milliseconds betweenSigns) {
        CVBudgetLock lock(mDataFile);
        const bool isTaken = lock.take().outcome == CVBudgetLock::Outcome::Taken;
        return std::make_unique<CVLockKeeper>(std::move(lock), isTaken, betweenSigns);
    }
    [[nodiscard]] QString path() const { return CVBudgetLock(mDataFile).path(); }
    [[nodiscard]] QDateTime lastSign() const { return QFileInfo(path()).lastModified(); }

    void writeOther(const QString& token) const {
        const CVLockHolder other{"laptop", "ben", "another machine", "another start", 7, 7, "pid:[7]", token};
        // In one step, because the keeper makes a lock that is missing.
        writeFile(path() + ".new", other.render());
        ASSERT_EQ(std::rename(QFile::encodeName(path() + ".new").constData(), QFile::encodeName(path()).constData()),
                  0);
    }

    QTemporaryDir mFolder;
    QString mDataFile = mFolder.filePath("Corvella Data.corvella");
};

TEST_F(CVLockKeeperTest, GivesSignsOfLifeByItselfAndReleasesTheLockAtTheEnd) {
    auto keeper = keep(1ms);
    EXPECT_TRUE(keeper->isTaken());
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
    EXPECT_TRUE(waitFor([this] { return lastSign().secsTo(QDateTime::currentDateTime()) < 60; }));
    keeper.reset();
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(CVLockKeeperTest, TellsOnceWhoHasTakenTheLockAndLeavesItAlone) {
    const auto keeper = keep(1ms);
    QList<CVLockHolder> told;
    QObject::connect(keeper.get(), &CVLockKeeper::lost, [&told](const CVLockHolder& holder) { told.append(holder); });
    writeOther("theirs");
    ASSERT_TRUE(waitFor([&] { return !told.isEmpty(); }));
    EXPECT_FALSE(keeper->isTaken());
    // Some signs of life later.
    (void)waitFor([deadline = QDeadlineTimer(50ms)] { return deadline.hasExpired(); });
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].user, "ben");
    writeOther("another's");
    ASSERT_TRUE(waitFor([&] { return told.size() == 2; }));
    QFile::remove(path());
    EXPECT_TRUE(waitFor([&] { return keeper->isTaken(); })) << "it is free again";
}

TEST_F(CVLockKeeperTest, TakesALockThatCouldNotBeMadeAtFirst) {
    mDataFile = mFolder.filePath("folder/Corvella Data.corvella");
    const auto keeper = keep(1h);
    EXPECT_FALSE(keeper->isTaken());
    ASSERT_TRUE(QDir().mkpath(mFolder.filePath("folder")));
    keeper->giveSignNow();
    EXPECT_TRUE(waitFor([&] { return keeper->isTaken(); }));
    EXPECT_TRUE(QFile::exists(path()));
}

TEST_F(CVLockKeeperTest, EndsWhileALossIsNotToldYet) {
    auto keeper = keep(1ms);
    writeOther("theirs");
    while (keeper->isTaken())
        QThread::msleep(1);
    keeper.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(QFile::exists(path())) << "the other's";
}

} // namespace
