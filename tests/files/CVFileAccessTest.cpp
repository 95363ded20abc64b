#include "files/CVFileAccess.h"

#include "files/CVMoveFile.h"
#include "files/CVReplaceFile.h"
#include "kit/ScratchHome.h"
#include "storage/ScratchAccess.h"
#include "storage/ScratchFiles.h"

#include <QFile>
#include <QIODevice>

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace {

using Entry = ListEntry;

constexpr quint32 kSomebody = 5001;
constexpr quint32 kAnother = 5002;
constexpr quint32 kTeam = 2000;

class CVFileAccessTest : public testing::Test {
protected:
    CVFileAccessTest() { writeFile(mPath, "old"); }

    [[nodiscard]] static CVReplaceResult replace(const QString& path) {
        return CVReplaceFile(path, [](QIODevice& output) { return output.write("new") == 3; });
    }

    void give(quint32 owner, quint32 group, unsigned mode) const {
        ASSERT_EQ(::chown(QFile::encodeName(mPath).constData(), owner, group), 0);
        setMode(mPath, mode);
    }

    /// Replaces the file as this user, who may do what he likes in the folder, and answers whether that succeeded.
    [[nodiscard]] bool replaceAs(quint32 user, const std::vector<gid_t>& groups) const {
        setMode(mHome.path(), 0755);
        setMode(mFolder, 0777);
        const pid_t child = ::fork();
        if (child == 0) {
            const bool isOther = ::setgroups(groups.size(), groups.data()) == 0 && ::setresgid(user, user, user) == 0 &&
                                 ::setresuid(user, user, user) == 0;
            ::_exit(isOther && replace(mPath).ok() ? 0 : 1);
        }
        int status = -1;
        return ::waitpid(child, &status, 0) == child && status == 0;
    }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/Data.corvella");
};

/// The mask stands in the mode where the group's bits do; taking it for these opened the file to the group.
TEST_F(CVFileAccessTest, keepsAList) {
    const AccessList list{{Entry::kOwner, 6},       {Entry::kUser, 6, kSomebody},
                          {Entry::kOwningGroup, 0}, {Entry::kGroup, 4, kTeam},
                          {Entry::kMask, 6},        {Entry::kOthers, 0}};
    if (!setList(mPath, list))
        GTEST_SKIP() << "the file system keeps no access control lists";
    const CVReplaceResult result = replace(mPath);
    EXPECT_TRUE(result.ok()) << result.error.toStdString();
    EXPECT_EQ(result.lostAccess, QStringList());
    EXPECT_EQ(readFile(mPath), "new");
    EXPECT_EQ(listOf(mPath), list);
    EXPECT_EQ(modeOf(mPath), 0660);
    EXPECT_TRUE(CVCopyFile(mPath, mFolder + "/copy").ok());
    EXPECT_EQ(listOf(mFolder + "/copy"), list);
}

TEST_F(CVFileAccessTest, takesNoListThatTheFolderHandsDown) {
    if (!setListForNewFiles(mFolder, {{Entry::kOwner, 7},
                                      {Entry::kUser, 7, kSomebody},
                                      {Entry::kOwningGroup, 7},
                                      {Entry::kMask, 7},
                                      {Entry::kOthers, 7}}))
        GTEST_SKIP() << "the file system keeps no access control lists";
    for (const unsigned mode : {0600U, 0640U, 0664U}) {
        setMode(mPath, mode);
        EXPECT_TRUE(replace(mPath).ok());
        EXPECT_EQ(listOf(mPath), AccessList());
        EXPECT_EQ(modeOf(mPath), static_cast<int>(mode));
    }
    EXPECT_TRUE(replace(mFolder + "/first").ok());
    EXPECT_EQ(listOf(mFolder + "/first"), AccessList());
    EXPECT_EQ(modeOf(mFolder + "/first"), 0600);
}

TEST_F(CVFileAccessTest, keepsWhatOtherProgramsNoted) {
    const QByteArray bytes("\0\xff binary", 9);
    if (!setAttribute(mPath, "user.xdg.comment", "my budget") || !setAttribute(mPath, "user.empty", "") ||
        !setAttribute(mPath, "user.binary", bytes))
        GTEST_SKIP() << "the file system keeps no such attributes";
    // The new file is as the former one, which even its owner may not write.
    setMode(mPath, 0400);
    const CVReplaceResult result = replace(mPath);
    EXPECT_EQ(result.lostAccess, QStringList());
    EXPECT_EQ(attributeOf(mPath, "user.xdg.comment"), "my budget");
    EXPECT_EQ(attributeOf(mPath, "user.empty"), "");
    EXPECT_EQ(attributeOf(mPath, "user.binary"), bytes);
    EXPECT_EQ(modeOf(mPath), 0400);
}

TEST_F(CVFileAccessTest, neverKeepsTheBitsThatRunAFileAsSomebodyElse) {
    for (const unsigned mode : {04755U, 02755U, 01755U, 07777U}) {
        writeFile(mPath, "old");
        setMode(mPath, mode);
        EXPECT_TRUE(replace(mPath).ok());
        EXPECT_EQ(modeOf(mPath), static_cast<int>(mode & 0777)) << std::oct << mode;
    }
}

struct FolderRow {
    unsigned file;
    unsigned folder;
};

TEST_F(CVFileAccessTest, ofAFolderLetsThoseEnterWhoMayRead) {
    for (const auto& [file, folder] : {FolderRow{0600, 0700}, {0640, 0750}, {0660, 0770}, {0644, 0755}, {0620, 0720}}) {
        setMode(mPath, file);
        const CVFileAccess access = CVFileAccess::of(mPath).ofFolder();
        EXPECT_EQ(access.mode(), folder) << std::oct << file;
        EXPECT_EQ(access.modeWithoutList(), folder) << std::oct << file;
        EXPECT_FALSE(access.hasList());
    }
    if (!setList(mPath, {{Entry::kOwner, 6},
                         {Entry::kUser, 4, kSomebody},
                         {Entry::kOwningGroup, 0},
                         {Entry::kMask, 6},
                         {Entry::kOthers, 4}}))
        GTEST_SKIP() << "the file system keeps no access control lists";
    const CVFileAccess access = CVFileAccess::of(mPath).ofFolder();
    EXPECT_TRUE(access.hasList());
    EXPECT_EQ(access.mode(), 0775U);
    EXPECT_EQ(access.modeWithoutList(), 0705U);
}

TEST_F(CVFileAccessTest, ofAFileThatIsGoneIsForItsOwnerAlone) {
    const CVFileAccess access = CVFileAccess::of(mFolder + "/none");
    const int file = ::open(QFile::encodeName(mPath).constData(), O_RDWR | O_CLOEXEC);
    const CVAccessResult result = access.giveTo(file);
    ::close(file);
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.lost.size(), 1);
    EXPECT_EQ(modeOf(mPath), 0600);
}

class CVFileAccessOfSomebodyElse : public CVFileAccessTest {
protected:
    void SetUp() override {
        if (::geteuid() != 0)
            GTEST_SKIP() << "only the superuser can be somebody else";
    }
};

struct OtherRow {
    unsigned mode;
    quint32 owner;
    quint32 group;
    std::vector<gid_t> groupsOfReplacer;
    unsigned newMode;
    quint32 newGroup;
};

TEST_F(CVFileAccessOfSomebodyElse, isKeptByTheSuperuser) {
    give(kSomebody, kTeam, 0640);
    EXPECT_EQ(replace(mPath).lostAccess, QStringList());
    const AccessFacts facts = AccessFacts::of(mPath);
    EXPECT_EQ(facts.owner, kSomebody);
    EXPECT_EQ(facts.group, kTeam);
    EXPECT_EQ(modeOf(mPath), 0640);
}

/// Group 2000 with mode 0660 became the user's own group, which could then read and write the budget.
TEST_F(CVFileAccessOfSomebodyElse, isKeptAsFarAsThatIsPossibleAndElseStricter) {
    for (const OtherRow& row : {OtherRow{0660, kSomebody, kTeam, {kTeam}, 0660, kTeam},
                                {0660, kSomebody, kTeam, {}, 0600, kSomebody},
                                {0664, kSomebody, kTeam, {}, 0644, kSomebody},
                                {0604, kSomebody, kTeam, {}, 0600, kSomebody},
                                {0660, kAnother, kTeam, {kTeam}, 0660, kTeam},
                                {0600, kAnother, kTeam, {kTeam}, 0600, kTeam},
                                {0644, kAnother, kAnother, {}, 0644, kSomebody}}) {
        writeFile(mPath, "old");
        give(row.owner, row.group, row.mode);
        EXPECT_TRUE(replaceAs(kSomebody, row.groupsOfReplacer));
        EXPECT_EQ(readFile(mPath), "new");
        const AccessFacts facts = AccessFacts::of(mPath);
        EXPECT_EQ(facts.owner, kSomebody);
        EXPECT_EQ(facts.group, row.newGroup) << std::oct << row.mode;
        EXPECT_EQ(modeOf(mPath), static_cast<int>(row.newMode)) << std::oct << row.mode;
        ASSERT_TRUE(QFile::remove(mPath));
    }
}

TEST_F(CVFileAccessOfSomebodyElse, givesTheListOnWithoutTheGroup) {
    const AccessList list{{Entry::kOwner, 6},
                          {Entry::kUser, 6, kAnother},
                          {Entry::kOwningGroup, 6},
                          {Entry::kMask, 6},
                          {Entry::kOthers, 0}};
    give(kSomebody, kTeam, 0660);
    if (!setList(mPath, list))
        GTEST_SKIP() << "the file system keeps no access control lists";
    EXPECT_TRUE(replaceAs(kSomebody, {}));
    AccessList stricter = list;
    stricter[2].rights = 0;
    EXPECT_EQ(listOf(mPath), stricter);
    EXPECT_EQ(AccessFacts::of(mPath).group, kSomebody);
}

} // namespace
