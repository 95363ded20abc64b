#include "versions/CVVersionFolder.h"

#include "files/CVTemporaryFile.h"
#include "kit/ScratchHome.h"
#include "storage/ScratchAccess.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

constexpr qint64 kUnlimited = 1'000'000'000;

class CVVersionFolderTest : public testing::Test {
protected:
    CVVersionFolderTest() {
        writeFile(mPath, "present");
        setMode(mPath, 0640);
    }

    /// What a save leaves of the former file.
    [[nodiscard]] QString former(const QByteArray& bytes) const {
        QString path = CVTemporaryFile::nameBeside(mPath);
        writeFile(path, bytes);
        return path;
    }

    QString keep(const QByteArray& bytes, CVVersionReason reason, const QDateTime& at) {
        const auto keeping = mVersions.keep(former(bytes), reason, at);
        EXPECT_TRUE(keeping.ok()) << keeping.error.toStdString();
        return QFileInfo(keeping.path).fileName();
    }

    [[nodiscard]] QStringList names() const {
        QStringList names;
        for (const CVVersion& version : mVersions.versions())
            names.append(QFileInfo(version.path).fileName());
        return names;
    }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/Data.corvella");
    QDateTime mNow{QDate(2026, 11, 22), QTime(14, 2, 7)};
    CVVersionFolder mVersions{mPath};
};

TEST_F(CVVersionFolderTest, holdsNothingAtFirst) {
    EXPECT_TRUE(mVersions.versions().isEmpty());
    EXPECT_EQ(mVersions.size(), 0);
    EXPECT_TRUE(mVersions.thin(mNow, kUnlimited).ok());
    EXPECT_TRUE(mVersions.removeAll().ok());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella"}));
}

TEST_F(CVVersionFolderTest, takesAFileAsAPlainDataFileWithItsTimeInItsName) {
    EXPECT_EQ(keep("old", CVVersionReason::Removal, mNow),
              QString("Data 2026-11-22 140207 (before removing).corvella"));
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella", "Earlier Versions"}));
    ASSERT_EQ(mVersions.versions().size(), 1);
    const CVVersion version = mVersions.versions().constFirst();
    EXPECT_EQ(readFile(version.path), "old");
    EXPECT_EQ(version.size, 3);
    EXPECT_EQ(version.name.kept, mNow);
    EXPECT_EQ(version.name.reason, CVVersionReason::Removal);
}

TEST_F(CVVersionFolderTest, hasTheAccessOfTheDataFile) {
    for (const auto& [file, folder] :
         {std::pair(0600U, 0700), {0640U, 0750}, {0660U, 0770}, {0644U, 0755}, {0400U, 0700}}) {
        setMode(mPath, file);
        keep("old", CVVersionReason::Hourly, mNow);
        EXPECT_EQ(modeOf(mVersions.path()), folder) << std::oct << file;
        EXPECT_TRUE(mVersions.removeAll().ok());
    }
}

TEST_F(CVVersionFolderTest, losesTheAccessThatTheDataFileLost) {
    setMode(mPath, 0644);
    keep("old", CVVersionReason::Hourly, mNow);
    setMode(mPath, 0600);
    keep("newer", CVVersionReason::Hourly, mNow);
    EXPECT_EQ(modeOf(mVersions.path()), 0700);
}

/// The mask of a list stands in the mode where the group's bits do.
TEST_F(CVVersionFolderTest, isOpenToThoseOfAListAndNotToTheGroup) {
    constexpr quint32 kSomebody = 5001;
    setMode(mPath, 0600);
    keep("old", CVVersionReason::Hourly, mNow);
    if (!setList(mPath, {{ListEntry::kOwner, 6},
                         {ListEntry::kUser, 6, kSomebody},
                         {ListEntry::kOwningGroup, 0},
                         {ListEntry::kMask, 6},
                         {ListEntry::kOthers, 0}}))
        GTEST_SKIP() << "the file system keeps no access control lists";
    // The folder was made as another program might make it.
    setMode(mVersions.path(), 0770);
    keep("newer", CVVersionReason::Hourly, mNow);
    EXPECT_EQ(modeOf(mVersions.path()), 0700);
    EXPECT_TRUE(mVersions.removeAll().ok());
    keep("newest", CVVersionReason::Hourly, mNow);
    const AccessFacts folder = AccessFacts::of(mVersions.path());
    EXPECT_EQ(folder.rightsOf({kSomebody, {}}), 7);
    EXPECT_EQ(folder.rightsOf({kSomebody + 1, {folder.group}}), 0);
    EXPECT_EQ(folder.rightsOf({kSomebody + 1, {}}), 0);
    keep("last", CVVersionReason::Hourly, mNow);
    EXPECT_EQ(AccessFacts::of(mVersions.path()).rightsOf({kSomebody, {}}), 7) << "what is right is left alone";
}

TEST_F(CVVersionFolderTest, leavesTheAccessOfWhatALinkLeadsTo) {
    const QString elsewhere = mHome.path(QStringLiteral("Elsewhere"));
    writeFile(elsewhere + "/other", "other");
    setMode(elsewhere, 0755);
    makeLink(elsewhere, mVersions.path());
    setMode(mPath, 0600);
    keep("old", CVVersionReason::Hourly, mNow);
    EXPECT_EQ(modeOf(elsewhere), 0755);
    EXPECT_EQ(mVersions.versions().size(), 1);
}

TEST_F(CVVersionFolderTest, numbersThoseOfOneSecond) {
    keep("a", CVVersionReason::Removal, mNow);
    keep("b", CVVersionReason::Removal, mNow);
    keep("c", CVVersionReason::Removal, mNow);
    EXPECT_EQ(names(), QStringList({"Data 2026-11-22 140207 3 (before removing).corvella",
                                    "Data 2026-11-22 140207 2 (before removing).corvella",
                                    "Data 2026-11-22 140207 (before removing).corvella"}));
}

TEST_F(CVVersionFolderTest, listsTheNewestFirstAndNothingElse) {
    keep("b", CVVersionReason::Hourly, mNow.addDays(-1));
    keep("a", CVVersionReason::Hourly, mNow);
    keep("c", CVVersionReason::Hourly, mNow.addYears(-1));
    writeFile(mVersions.path() + "/Notes.txt", "mine");
    writeFile(mVersions.path() + "/Other 2026-11-22 140207 (hourly).corvella", "another's");
    makeLink(mPath, mVersions.path() + "/Data 2026-11-22 150000 (hourly).corvella");
    EXPECT_EQ(names(),
              QStringList({"Data 2026-11-22 140207 (hourly).corvella", "Data 2026-11-21 140207 (hourly).corvella",
                           "Data 2025-11-22 140207 (hourly).corvella"}));
    EXPECT_EQ(mVersions.size(), 3);
    EXPECT_TRUE(mVersions.removeAll().ok());
    EXPECT_EQ(namesIn(mVersions.path()).size(), 3) << "what is no version stays";
}

TEST_F(CVVersionFolderTest, liesBesideTheFileToWhichLinksLead) {
    const QString link = mHome.path(QStringLiteral("Link.corvella"));
    makeLink(mPath, link);
    EXPECT_EQ(CVVersionFolder(link).path(), mVersions.path());
}

TEST_F(CVVersionFolderTest, copiesAFileWithAFurtherName) {
    const QString file = former("old");
    const QString further = mFolder + "/further";
    ASSERT_EQ(::link(QFile::encodeName(file).constData(), QFile::encodeName(further).constData()), 0);
    EXPECT_TRUE(mVersions.keep(file, CVVersionReason::Hourly, mNow).ok());
    writeFile(further, "changed");
    EXPECT_EQ(readFile(mVersions.versions().constFirst().path), "old");
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella", "Earlier Versions", "further"}));
}

TEST_F(CVVersionFolderTest, leavesAFileOfWhichItKeepsACopy) {
    EXPECT_TRUE(mVersions.keepCopy(mPath, CVVersionReason::Move, mNow).ok());
    EXPECT_EQ(readFile(mPath), "present");
    EXPECT_EQ(readFile(mVersions.versions().constFirst().path), "present");
}

TEST_F(CVVersionFolderTest, saysWhyItCannotKeepAndLeavesTheFile) {
    writeFile(mVersions.path(), "a file in the way");
    const QString file = former("old");
    EXPECT_FALSE(mVersions.keep(file, CVVersionReason::Hourly, mNow).ok());
    EXPECT_EQ(readFile(file), "old");
    EXPECT_EQ(readFile(mVersions.path()), "a file in the way");
}

TEST_F(CVVersionFolderTest, removesWhatIsSuperfluous) {
    for (int hour = 0; hour < 5; ++hour)
        keep("x", CVVersionReason::Hourly, mNow.addDays(-3).addSecs(-3600 * hour));
    keep("newest", CVVersionReason::Hourly, mNow);
    EXPECT_TRUE(mVersions.thin(mNow, kUnlimited).ok());
    EXPECT_EQ(names(),
              QStringList({"Data 2026-11-22 140207 (hourly).corvella", "Data 2026-11-19 100207 (hourly).corvella"}));
    EXPECT_TRUE(mVersions.thin(mNow, 1).ok());
    EXPECT_EQ(names(), QStringList({"Data 2026-11-22 140207 (hourly).corvella"}));
}

TEST_F(CVVersionFolderTest, movesBesideAnotherDataFile) {
    const QString elsewhere = mHome.path(QStringLiteral("Elsewhere/Data.corvella"));
    writeFile(elsewhere, "moved");
    const CVVersionFolder other(elsewhere);
    keep("same second", CVVersionReason::Hourly, mNow);
    keep("older", CVVersionReason::Hourly, mNow.addDays(-1));
    writeFile(other.path() + "/Data 2026-11-22 140207 (hourly).corvella", "was there");
    EXPECT_TRUE(mVersions.moveTo(other).ok());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella"}));
    EXPECT_EQ(namesIn(other.path()),
              QStringList({"Data 2026-11-21 140207 (hourly).corvella", "Data 2026-11-22 140207 (hourly).corvella",
                           "Data 2026-11-22 140207 2 (hourly).corvella"}));
    EXPECT_EQ(readFile(other.path() + "/Data 2026-11-22 140207 (hourly).corvella"), "was there");
    EXPECT_EQ(readFile(other.path() + "/Data 2026-11-22 140207 2 (hourly).corvella"), "same second");
}

TEST_F(CVVersionFolderTest, staysWhereItCannotMove) {
    const QString elsewhere = mHome.path(QStringLiteral("Elsewhere/Data.corvella"));
    writeFile(elsewhere, "moved");
    const CVVersionFolder other(elsewhere);
    writeFile(other.path(), "a file in the way");
    keep("old", CVVersionReason::Hourly, mNow);
    EXPECT_FALSE(mVersions.moveTo(other).ok());
    EXPECT_EQ(mVersions.versions().size(), 1);
}

TEST_F(CVVersionFolderTest, doesNotMoveOntoItself) {
    keep("old", CVVersionReason::Hourly, mNow);
    makeLink(mFolder, mHome.path(QStringLiteral("Link")));
    EXPECT_TRUE(mVersions.moveTo(CVVersionFolder(mHome.path(QStringLiteral("Link/Data.corvella")))).ok());
    EXPECT_EQ(names().size(), 1);
}

} // namespace
