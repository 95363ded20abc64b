#include "files/CVTemporaryFile.h"

#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QFileInfo>
#include <QSysInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class CVTemporaryFileTest : public testing::Test {
protected:
    CVTemporaryFileTest() { writeFile(mPlace, "old"); }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPlace = mFolder + QStringLiteral("/Data File.corvella");
};

TEST_F(CVTemporaryFileTest, hasAnUnmistakableName) {
    const CVTemporaryFile file(mPlace, 0600);
    EXPECT_TRUE(file.opened().ok());
    EXPECT_EQ(QFileInfo(file.path()).path(), mFolder);
    const QString begin =
        QStringLiteral(".Data File.corvella.saving-%1-%2-").arg(QSysInfo::machineHostName()).arg(::getpid());
    EXPECT_TRUE(QFileInfo(file.path()).fileName().startsWith(begin)) << file.path().toStdString();
    EXPECT_EQ(QFileInfo(file.path()).fileName().size(), begin.size() + 6);
}

TEST_F(CVTemporaryFileTest, goesWithTheObjectUnlessItsNameIsReleased) {
    { const CVTemporaryFile file(mPlace, 0600); }
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data File.corvella"}));
    {
        CVTemporaryFile file(mPlace, 0600);
        file.release();
    }
    EXPECT_EQ(namesIn(mFolder).size(), 2);
}

TEST_F(CVTemporaryFileTest, hasItsModeLessTheMask) {
    const mode_t previous = ::umask(0027);
    const CVTemporaryFile usual(mPlace, 0666);
    const CVTemporaryFile secret(mPlace, 0600);
    ::umask(previous);
    EXPECT_EQ(modeOf(usual.path()), 0640);
    EXPECT_EQ(modeOf(secret.path()), 0600);
}

TEST_F(CVTemporaryFileTest, saysWhyItCouldNotBeMade) {
    const CVTemporaryFile file(mHome.path(QStringLiteral("nowhere/file")), 0600);
    EXPECT_EQ(file.opened().error, qt_error_string(ENOENT));
}

TEST_F(CVTemporaryFileTest, isRecognisedAsALeftover) {
    CVTemporaryFile file(mPlace, 0600);
    file.release();
    const auto left = CVTemporaryFile::leftIn(mFolder);
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left.constFirst().path, file.path());
    EXPECT_EQ(left.constFirst().madeFor, QString("Data File.corvella"));
}

TEST_F(CVTemporaryFileTest, standsForTheFirstFileWhenItIsMadeForATemporaryOne) {
    const QString name = CVTemporaryFile::nameBeside(CVTemporaryFile::nameBeside(mPlace));
    EXPECT_THAT(QFileInfo(name).fileName().toStdString(), testing::StartsWith(".Data File.corvella.saving-"));
    EXPECT_EQ(name.count(QLatin1String(".saving-")), 1);
}

TEST_F(CVTemporaryFileTest, canBeMadeForAVeryLongName) {
    const CVTemporaryFile file(mFolder + u'/' + QString(255, u'n'), 0600);
    EXPECT_TRUE(file.opened().ok()) << file.opened().error.toStdString();
}

} // namespace
