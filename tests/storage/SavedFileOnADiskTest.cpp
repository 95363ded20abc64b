#include "kit/ScratchHome.h"
#include "storage/CVSavedFile.h"
#include "storage/SampleFile.h"
#include "storage/ScratchFiles.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// A file in a folder to which a link leads, as a path leads to another disk while the disk that belongs there is away.
class SavedFileOnADisk : public testing::Test {
protected:
    void SetUp() override {
        if (!mOther.isValid() ||
            CVFileSignature::of(mOther.path())->device == CVFileSignature::of(mHome.path())->device)
            GTEST_SKIP() << "there is only one disk";
        makeLink(mHome.path(QStringLiteral("present")), mFolder);
        writeFile(mHome.path(QStringLiteral("present/Data.corvella")), sampleFile());
        mFile.markAsRead(*CVFileSignature::of(mPath));
    }
    void takeDiskAway() const {
        ASSERT_TRUE(QFile::remove(mFolder));
        makeLink(mOther.path(), mFolder);
    }
    void bringDiskBack() const {
        ASSERT_TRUE(QFile::remove(mFolder));
        makeLink(mHome.path(QStringLiteral("present")), mFolder);
    }

    QByteArray mMine = sampleFile().replace("2014", "2013");
    ScratchHome mHome;
    QTemporaryDir mOther{QStringLiteral("/dev/shm/corvella disk XXXXXX")};
    QString mFolder = mHome.path(QStringLiteral("Disk"));
    QString mPath = mFolder + QStringLiteral("/Data.corvella");
    CVSavedFile mFile{mPath};
};

TEST_F(SavedFileOnADisk, isSavedNowhereElseWhileTheDiskIsAway) {
    EXPECT_FALSE(mFile.look());
    takeDiskAway();
    const auto change = mFile.look();
    ASSERT_TRUE(change);
    EXPECT_EQ(change->kind, CVOutsideChange::Kind::Gone);
    EXPECT_TRUE(change->diskIsAway);
    const CVSaveOutcome outcome = mFile.save(textOf(mMine), {}, CVUnreadableFile::Replaced);
    EXPECT_TRUE(outcome.message.contains("the disk on which it was is not there")) << outcome.message.toStdString();
    EXPECT_FALSE(outcome.awaitsReadable);
    EXPECT_TRUE(namesIn(mOther.path()).isEmpty());
    bringDiskBack();
    EXPECT_EQ(mFile.look()->kind, CVOutsideChange::Kind::AsKnown);
    EXPECT_EQ(mFile.save(textOf(mMine), {}, CVUnreadableFile::AwaitedIfWatched).message, QString());
    EXPECT_EQ(readFile(mPath), mMine);
}

TEST_F(SavedFileOnADisk, isGoneWithItsFolder) {
    ASSERT_TRUE(QFile::remove(mFolder));
    const auto change = mFile.look();
    ASSERT_TRUE(change);
    EXPECT_EQ(change->kind, CVOutsideChange::Kind::Gone);
    EXPECT_FALSE(change->diskIsAway);
}

} // namespace
