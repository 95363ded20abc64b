#include "kit/ScratchHome.h"
#include "storage/CVSaveQueue.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>

namespace {

/// A save queue whose worker is blocked in the middle of its first write.
class SaveOrder : public testing::Test {
protected:
    SaveOrder() {
        QObject::connect(&mQueue, &CVSaveQueue::saveFinished, &mContext, [this] { ++mFinished; });
        FaultyCalls::arm(mHome.path(), {});
    }
    ~SaveOrder() override { FaultyCalls::disarm(); }

    void save(const char* text) { mQueue.save(mPath, textOf(text)); }
    /// "fsync" and "renameat2", each with "file" or "folder", in the order of the calls.
    [[nodiscard]] QStringList steps() const {
        QStringList steps;
        for (const auto& call : FaultyCalls::disarm().calls) {
            if (call.name == "fsync" || call.name == "renameat2")
                steps.append(QString::fromStdString(call.name) +
                             (call.path == mHome.path().toStdString() ? " folder" : " file"));
        }
        return steps;
    }

    ScratchHome mHome;
    QString mPath = mHome.path(QStringLiteral("Data.corvella"));
    CVSaveQueue mQueue;
    QObject mContext;
    int mFinished = 0;
};

TEST_F(SaveOrder, mergesTheRequestsThatArriveDuringAWrite) {
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("first");
    FaultyCalls::Gate::waitForArrival();
    save("second");
    save("third");
    save("fourth");
    EXPECT_TRUE(mQueue.isSaving());
    EXPECT_TRUE(readFile(mPath).isNull());
    gate.reset();
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "fourth");
    EXPECT_EQ(steps().count(QStringLiteral("fsync file")), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(mFinished, 2);
}

TEST_F(SaveOrder, showsTheOldFileUntilTheNewOneIsWhole) {
    writeFile(mPath, "old");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("new");
    FaultyCalls::Gate::waitForArrival();
    EXPECT_EQ(readFile(mPath), "old");
    gate.reset();
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "new");
}

TEST_F(SaveOrder, goesOnWithTheNextRequestAfterAFailure) {
    FaultyCalls::disarm();
    FaultyCalls::arm(mHome.path(), {}, {{"renameat2", EIO}});
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("first");
    FaultyCalls::Gate::waitForArrival();
    save("second");
    gate.reset();
    EXPECT_FALSE(mQueue.waitForFinished().saved);
    QCoreApplication::processEvents();
    EXPECT_EQ(mFinished, 2);
    FaultyCalls::disarm();
    save("third");
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "third");
}

TEST_F(SaveOrder, doesNotMergeARequestThatAsksForAVersionOfWhatWaits) {
    constexpr qint64 kLimit = 1'000'000;
    writeFile(mPath, "old");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    mQueue.save(mPath, textOf("one"), {{}, kLimit});
    FaultyCalls::Gate::waitForArrival();
    mQueue.save(mPath, textOf("with twenty rows"), {{}, kLimit});
    mQueue.save(mPath, textOf("without them"), {CVVersionReason::Removal, kLimit});
    mQueue.save(mPath, textOf("with one more"), {{}, kLimit});
    gate.reset();
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "with one more");
    QByteArrayList kept;
    for (const CVVersion& version : CVVersionFolder(mPath).versions())
        kept.append(readFile(version.path));
    EXPECT_THAT(kept, testing::UnorderedElementsAre("old", "with twenty rows"));
}

TEST_F(SaveOrder, doesNotMergeASaveWithAStateThatIsToBeKept) {
    constexpr qint64 kLimit = 1'000'000;
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("first");
    FaultyCalls::Gate::waitForArrival();
    save("second");
    mQueue.keepState(mPath, textOf("state"), kLimit);
    save("third");
    gate.reset();
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "third");
    ASSERT_EQ(CVVersionFolder(mPath).versions().size(), 1);
    EXPECT_EQ(readFile(CVVersionFolder(mPath).versions()[0].path), "state");
    QCoreApplication::processEvents();
    EXPECT_EQ(mFinished, 3);
}

TEST_F(SaveOrder, givesUpWaitingForADiskThatHangs) {
    using namespace std::chrono_literals;
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("text");
    FaultyCalls::Gate::waitForArrival();
    EXPECT_FALSE(mQueue.waitForFinished(1ms));
    EXPECT_FALSE(mQueue.waitUntilIdle(1ms));
    EXPECT_FALSE(mQueue.isSettled());
    gate.reset();
    const auto outcome = mQueue.waitForFinished(20s);
    ASSERT_TRUE(outcome);
    EXPECT_TRUE(outcome->saved);
    EXPECT_TRUE(mQueue.waitUntilIdle(20s));
}

TEST_F(SaveOrder, keepsTheVersionThatAFailedSaveAskedFor) {
    constexpr qint64 kLimit = 1'000'000;
    writeFile(mPath, "with rows");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    const CVVersionFolder versions(mPath);
    EXPECT_TRUE(versions.keepCopy(mPath, CVVersionReason::Hourly, QDateTime::currentDateTime().addSecs(-1)).ok());
    FaultyCalls::arm(mHome.path(), {}, {{"write", ENOSPC}});
    mQueue.save(mPath, textOf("without rows"), {CVVersionReason::Removal, kLimit});
    EXPECT_FALSE(mQueue.waitForFinished().saved);
    FaultyCalls::arm(mHome.path(), {});
    mQueue.save(mPath, textOf("without rows"), {{}, kLimit});
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    ASSERT_EQ(versions.versions().size(), 2);
    EXPECT_EQ(versions.versions().constFirst().name.reason, CVVersionReason::Removal);
    mQueue.save(mPath, textOf("more"), {{}, kLimit});
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(versions.versions().size(), 2) << "it is asked for once";
}

TEST_F(SaveOrder, tellsThatSuperfluousVersionsCannotBeRemoved) {
    constexpr qint64 kNoRoom = 1;
    writeFile(mPath, "old");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    const CVVersionFolder versions(mPath);
    for (const int days : {1, 2, 3})
        EXPECT_TRUE(
            versions.keepCopy(mPath, CVVersionReason::Hourly, QDateTime::currentDateTime().addDays(-days)).ok());
    FaultyCalls::arm(versions.path(), {}, {{"unlink", EROFS}});
    mQueue.save(mPath, textOf("new"), {CVVersionReason::Clearing, kNoRoom});
    const CVSaveOutcome outcome = mQueue.waitForFinished();
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(outcome.versionTrouble, "Superfluous earlier versions could not be removed from “" + versions.path() +
                                          "”: " + qt_error_string(EROFS) + ".");
    EXPECT_EQ(versions.versions().size(), 4);
}

TEST_F(SaveOrder, leavesNotAFileForEverySaveWhereNoVersionCanBeKept) {
    constexpr qint64 kLimit = 1'000'000;
    writeFile(mPath, "old");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    const QString obstacle = CVVersionFolder(mPath).path();
    writeFile(obstacle, "a file in the way");
    for (const char* const text : {"one", "two", "three"}) {
        mQueue.save(mPath, textOf(text), {{}, kLimit});
        EXPECT_TRUE(mQueue.waitForFinished().saved);
    }
    EXPECT_EQ(namesIn(mHome.path()).filter(QStringLiteral(".saving-")).size(), 1);
    ASSERT_TRUE(QFile::remove(obstacle));
    mQueue.save(mPath, textOf("four"), {CVVersionReason::Clearing, kLimit});
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(CVVersionFolder(mPath).versions().constFirst().path), "three");
}

TEST_F(SaveOrder, keepsWhatAnotherProgramPutsThereAtTheLastMoment) {
    for (const char* const unsupported : {"", "renameat2"}) {
        FaultyCalls::disarm();
        FaultyCalls::arm(mHome.path(), {}, {{unsupported, EINVAL}});
        writeFile(mPath, "old");
        mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
        auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
        save("ours");
        FaultyCalls::Gate::waitForArrival();
        writeFile(mHome.path(QStringLiteral("theirs")), "theirs");
        ASSERT_EQ(std::rename(mHome.path(QStringLiteral("theirs")).toUtf8().constData(), mPath.toUtf8().constData()),
                  0);
        gate.reset();
        const CVSaveOutcome outcome = mQueue.waitForFinished();
        EXPECT_TRUE(outcome.saved);
        EXPECT_EQ(readFile(mPath), "ours");
        EXPECT_EQ(readFile(outcome.keptCopy), "theirs") << unsupported;
        EXPECT_TRUE(outcome.keptCopy.contains(QLatin1String("(changed outside "))) << unsupported;
    }
}

TEST_F(SaveOrder, tellsThatAFirstFileIsOpenToOthersWhereTheDiskKeepsNoModes) {
    for (const mode_t mode : {0644U, 0600U}) {
        ASSERT_TRUE(!QFile::exists(mPath) || QFile::remove(mPath));
        FaultyCalls::disarm();
        FaultyCalls::arm(mHome.path(), {}, {{"chmod", EPERM}});
        auto gate = std::make_unique<FaultyCalls::Gate>("chmod");
        save("first");
        FaultyCalls::Gate::waitForArrival();
        const QStringList fresh = namesIn(mHome.path()).filter(QStringLiteral(".saving-"));
        ASSERT_EQ(fresh.size(), 1);
        // The disk decides on the mode; the call of the C library itself is replaced.
        ASSERT_EQ(::syscall(SYS_fchmodat, AT_FDCWD, QFile::encodeName(mHome.path(fresh[0])).constData(), mode), 0);
        gate.reset();
        EXPECT_EQ(mQueue.waitForFinished().isOpenToOthers, mode != 0600U);
        EXPECT_EQ(modeOf(mPath), static_cast<int>(mode));
        FaultyCalls::disarm();
        save("second");
        EXPECT_TRUE(mQueue.waitForFinished().saved);
        EXPECT_FALSE(mQueue.waitForFinished().isOpenToOthers) << "told once";
    }
}

TEST_F(SaveOrder, syncsTheFileBeforeItTakesItsPlaceAndTheFolderAfterwards) {
    writeFile(mPath, "old");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    save("text");
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(steps(), QStringList({"fsync file", "renameat2 file", "fsync folder"}));
}

} // namespace
