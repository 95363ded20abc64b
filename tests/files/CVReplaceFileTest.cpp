#include "files/CVReplaceFile.h"

#include "files/CVFileAccess.h"
#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QFileInfo>
#include <QIODevice>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class CVReplaceFileTest : public testing::Test {
protected:
    [[nodiscard]] static CVReplaceResult replace(const QString& path, const QByteArray& bytes) {
        return CVReplaceFile(path, [&bytes](QIODevice& output) { return output.write(bytes) == bytes.size(); });
    }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/Data File.corvella");
};

TEST_F(CVReplaceFileTest, makesANewFile) {
    writeFile(mFolder + "/other", "other");
    const CVReplaceResult result = replace(mPath, "new");
    EXPECT_TRUE(result.ok()) << result.error.toStdString();
    EXPECT_EQ(readFile(mPath), "new");
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data File.corvella", "other"}));
}

TEST_F(CVReplaceFileTest, replacesAllOfAnExistingFile) {
    for (const QByteArray& before :
         {QByteArray("a much longer text than the new one"), QByteArray("s"), QByteArray("")}) {
        writeFile(mPath, before);
        EXPECT_TRUE(replace(mPath, "the new text").ok());
        EXPECT_EQ(readFile(mPath), "the new text");
        EXPECT_EQ(namesIn(mFolder), QStringList({"Data File.corvella"}));
    }
}

TEST_F(CVReplaceFileTest, writesEveryPiece) {
    writeFile(mPath, "old");
    QByteArray expected;
    EXPECT_TRUE(CVReplaceFile(mPath, [&expected](QIODevice& output) {
                    for (int i = 0; i < 50; ++i) {
                        const QByteArray piece = QByteArray::number(i).repeated(i * 1000 + 1);
                        EXPECT_EQ(output.write(piece), piece.size());
                        expected += piece;
                    }
                    return true;
                }).ok());
    EXPECT_TRUE(readFile(mPath) == expected);
}

TEST_F(CVReplaceFileTest, writesAnEmptyFile) {
    writeFile(mPath, "old");
    EXPECT_TRUE(replace(mPath, "").ok());
    EXPECT_EQ(readFile(mPath), "");
}

TEST_F(CVReplaceFileTest, leavesTheOldFileWhereTheWriterGivesUp) {
    writeFile(mPath, "old");
    const CVReplaceResult result = CVReplaceFile(mPath, [](QIODevice& output) { return output.write("half") < 0; });
    EXPECT_TRUE(result.ok());
    EXPECT_FALSE(result.written.has_value());
    EXPECT_EQ(readFile(mPath), "old");
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data File.corvella"}));
}

TEST_F(CVReplaceFileTest, leavesTheModeOfAFileForOthersToTheUser) {
    writeFile(mFolder + "/other", "other");
    const mode_t previous = ::umask(0027);
    EXPECT_TRUE(CVReplaceFile(
                    mPath, [](QIODevice& output) { return output.write("new") > 0; }, CVNewFile::Usual)
                    .ok());
    ::umask(previous);
    EXPECT_EQ(modeOf(mPath), 0640);
}

TEST_F(CVReplaceFileTest, keepsANewFileFromOthers) {
    writeFile(mFolder + "/other", "other");
    const mode_t previous = ::umask(0);
    EXPECT_TRUE(replace(mPath, "new").ok());
    ::umask(previous);
    EXPECT_EQ(modeOf(mPath), 0600);
}

TEST_F(CVReplaceFileTest, keepsTheModeOfAnExistingFile) {
    for (const unsigned mode : {0600U, 0640U, 0644U, 0660U, 0666U, 0700U}) {
        writeFile(mPath, "old");
        setMode(mPath, mode);
        EXPECT_TRUE(replace(mPath, "new").ok());
        EXPECT_EQ(modeOf(mPath), static_cast<int>(mode));
        EXPECT_EQ(readFile(mPath), "new");
    }
}

TEST_F(CVReplaceFileTest, givesTheAccessOfAnotherFile) {
    const QString model = mFolder + "/model";
    for (const unsigned mode : {0640U, 0600U, 0664U}) {
        writeFile(model, "model");
        setMode(model, mode);
        EXPECT_TRUE(CVReplaceFile(
                        mPath, [](QIODevice& output) { return output.write("new") > 0; }, CVFileAccess::of(model))
                        .ok());
        EXPECT_EQ(modeOf(mPath), static_cast<int>(mode));
    }
}

TEST_F(CVReplaceFileTest, leavesAnotherNameOfTheOldFileAlone) {
    writeFile(mPath, "old");
    const QString second = mFolder + "/second name";
    ASSERT_EQ(::link(mPath.toUtf8().constData(), second.toUtf8().constData()), 0);
    EXPECT_TRUE(replace(mPath, "new").ok());
    EXPECT_EQ(readFile(mPath), "new");
    EXPECT_EQ(readFile(second), "old");
}

struct LinkRow {
    const char* behaviour;
    /// The target relative to the folder of the link; %1 stands for the home folder.
    const char* target;
    /// The path of the file that gets the text, relative to the home folder.
    const char* file;
    bool exists;
};

TEST_F(CVReplaceFileTest, followsALink) {
    for (const LinkRow& row : {LinkRow{"absolute", "%1/Elsewhere/real", "Elsewhere/real", true},
                               LinkRow{"relative", "../Elsewhere/real", "Elsewhere/real", true},
                               LinkRow{"beside", "real", "A Folder/real", true},
                               LinkRow{"dangling, absolute", "%1/Elsewhere/none", "Elsewhere/none", false},
                               LinkRow{"dangling, relative", "../Elsewhere/none", "Elsewhere/none", false}}) {
        const ScratchHome home;
        const QString folder = home.path(QStringLiteral("A Folder"));
        const QString real = home.path(QLatin1String(row.file));
        writeFile(folder + "/other", "other");
        writeFile(home.path(QStringLiteral("Elsewhere/other")), "other");
        if (row.exists) {
            writeFile(real, "old");
            setMode(real, 0640);
        }
        const QString target = QString::fromLatin1(row.target).replace(QLatin1String("%1"), home.path());
        makeLink(target, folder + "/link");
        const CVReplaceResult result = replace(folder + "/link", "new");
        EXPECT_TRUE(result.ok()) << row.behaviour << ": " << result.error.toStdString();
        EXPECT_EQ(readFile(real), "new") << row.behaviour;
        EXPECT_EQ(modeOf(real), row.exists ? 0640 : 0600) << row.behaviour;
        EXPECT_TRUE(QFileInfo(folder + "/link").isSymLink()) << row.behaviour;
        EXPECT_EQ(readFile(folder + "/link"), "new") << row.behaviour;
        EXPECT_EQ(namesIn(folder).size() + namesIn(home.path(QStringLiteral("Elsewhere"))).size(), 4) << row.behaviour;
    }
}

TEST_F(CVReplaceFileTest, followsAChainOfLinks) {
    writeFile(mFolder + "/real", "old");
    makeLink(QStringLiteral("real"), mFolder + "/first");
    makeLink(QStringLiteral("first"), mFolder + "/second");
    makeLink(mFolder + "/second", mFolder + "/third");
    EXPECT_TRUE(replace(mFolder + "/third", "new").ok());
    EXPECT_EQ(readFile(mFolder + "/real"), "new");
    for (const char* link : {"/first", "/second", "/third"})
        EXPECT_TRUE(QFileInfo(mFolder + link).isSymLink()) << link;
}

TEST_F(CVReplaceFileTest, refusesLinksThatGoRoundInACircle) {
    writeFile(mFolder + "/other", "other");
    makeLink(QStringLiteral("second"), mFolder + "/first");
    makeLink(QStringLiteral("first"), mFolder + "/second");
    EXPECT_FALSE(replace(mFolder + "/first", "new").ok());
    EXPECT_EQ(namesIn(mFolder), QStringList({"first", "other", "second"}));
    EXPECT_TRUE(QFileInfo(mFolder + "/first").isSymLink());
    EXPECT_TRUE(QFileInfo(mFolder + "/second").isSymLink());
}

TEST_F(CVReplaceFileTest, failsWithoutAFolder) {
    const CVReplaceResult result = replace(mPath, "new");
    EXPECT_FALSE(result.ok());
    EXPECT_FALSE(QFileInfo::exists(mFolder));
}

TEST_F(CVReplaceFileTest, failsWhereALinkLeadsToNoFolder) {
    writeFile(mFolder + "/other", "other");
    makeLink(QStringLiteral("../None/file"), mPath);
    EXPECT_FALSE(replace(mPath, "new").ok());
    EXPECT_TRUE(QFileInfo(mPath).isSymLink());
    EXPECT_EQ(namesIn(mHome.path()), QStringList({"A Folder"}));
}

TEST_F(CVReplaceFileTest, failsWhereAFolderStands) {
    writeFile(mPath + "/inside", "inside");
    const CVReplaceResult result = replace(mPath, "new");
    EXPECT_FALSE(result.ok());
    EXPECT_EQ(readFile(mPath + "/inside"), "inside");
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data File.corvella"}));
}

TEST_F(CVReplaceFileTest, failsWhereAFileStandsForTheFolder) {
    writeFile(mFolder, "a file");
    EXPECT_FALSE(replace(mPath, "new").ok());
    EXPECT_EQ(readFile(mFolder), "a file");
}

TEST(CVSyncFolderTest, worksForAFolderAndForNothingElse) {
    const ScratchHome home;
    writeFile(home.path(QStringLiteral("file")), "file");
    EXPECT_TRUE(CVSyncFolder(home.path()).ok());
    EXPECT_FALSE(CVSyncFolder(home.path(QStringLiteral("none"))).ok());
    EXPECT_FALSE(CVSyncFolder(home.path(QStringLiteral("file"))).ok());
}

} // namespace
