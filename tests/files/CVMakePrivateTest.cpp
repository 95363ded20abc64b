#include "files/CVMakePrivate.h"

#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <ostream>

namespace {

/// Each test runs with a mask that hides nothing, the usual one and a strict one.
class CVMakePrivateTest : public testing::TestWithParam<mode_t> {
protected:
    CVMakePrivateTest() : mUmask(::umask(GetParam())) {}
    ~CVMakePrivateTest() override { ::umask(mUmask); }

    ScratchHome mHome;

private:
    mode_t mUmask;
};

TEST_P(CVMakePrivateTest, AFolderAndTheMissingOnesAboveItAreTheUsersOwn) {
    EXPECT_TRUE(CVMakePrivateFolder(mHome.path("a/b b/c")).ok());
    for (const char* const folder : {"a", "a/b b", "a/b b/c"})
        EXPECT_EQ(modeOf(mHome.path(folder)), 0700) << folder;
    EXPECT_TRUE(CVMakePrivateFolder(mHome.path("a/d/")).ok());
    EXPECT_EQ(modeOf(mHome.path("a/d")), 0700);
}

TEST_P(CVMakePrivateTest, AFolderThatIsThereKeepsItsAccess) {
    ASSERT_TRUE(QDir().mkdir(mHome.path("shared")));
    setMode(mHome.path("shared"), 02775);
    makeLink(mHome.path("shared"), mHome.path("link"));
    EXPECT_TRUE(CVMakePrivateFolder(mHome.path("shared")).ok());
    EXPECT_TRUE(CVMakePrivateFolder(mHome.path("link")).ok());
    EXPECT_TRUE(CVMakePrivateFolder(mHome.path("link/own")).ok());
    EXPECT_EQ(modeOf(mHome.path("shared")), 02775);
    EXPECT_EQ(modeOf(mHome.path("shared/own")) & 0777, 0700);
}

TEST_P(CVMakePrivateTest, WhatIsInTheWayIsToldAndStays) {
    writeFile(mHome.path("file"), "in the way");
    EXPECT_EQ(CVMakePrivateFolder(mHome.path("file")).error, qt_error_string(EEXIST));
    EXPECT_EQ(CVMakePrivateFolder(mHome.path("file/folder")).error, qt_error_string(ENOTDIR));
    EXPECT_EQ(readFile(mHome.path("file")), "in the way");
}

TEST_P(CVMakePrivateTest, AFileIsEmptyAndTheUsersOwn) {
    const QString path = mHome.path("config/Quenby Labs/Corvella.conf");
    EXPECT_TRUE(CVMakePrivateFile(path).ok());
    EXPECT_EQ(readFile(path), "");
    EXPECT_EQ(modeOf(path), 0600);
    EXPECT_EQ(modeOf(mHome.path("config")), 0700);
}

TEST_P(CVMakePrivateTest, AFileThatIsThereKeepsItsBytesAndWhatItsOwnerMayDo) {
    const QString path = mHome.path("file");
    writeFile(path, "bytes");
    for (const auto& [before, after] : {std::pair(0666U, 0600), {0644U, 0600}, {0600U, 0600}, {0444U, 0400}}) {
        setMode(path, before);
        EXPECT_TRUE(CVMakePrivateFile(path).ok());
        EXPECT_EQ(modeOf(path), after);
        EXPECT_EQ(readFile(path), "bytes");
    }
}

TEST_P(CVMakePrivateTest, WhatALinkLeadsToAndWhatIsNoFileStayAsTheyAre) {
    const QString path = mHome.path("file");
    writeFile(path, "bytes");
    setMode(path, 0644);
    makeLink(path, mHome.path("link"));
    EXPECT_TRUE(CVMakePrivateFile(mHome.path("link")).ok());
    EXPECT_EQ(modeOf(path), 0644);
    ASSERT_TRUE(QDir().mkdir(mHome.path("folder")));
    setMode(mHome.path("folder"), 0755);
    EXPECT_TRUE(CVMakePrivateFile(mHome.path("folder")).ok());
    EXPECT_EQ(modeOf(mHome.path("folder")), 0755);
}

INSTANTIATE_TEST_SUITE_P(umask, CVMakePrivateTest, testing::Values(0000, 0022, 0077));

} // namespace
