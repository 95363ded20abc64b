#include "files/CVSwapFile.h"

#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class CVSwapFileTest : public testing::Test {
protected:
    CVSwapFileTest() { writeFile(mFresh, "new"); }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mFresh = mFolder + QStringLiteral("/fresh");
    QString mTarget = mFolder + QStringLiteral("/target");
};

TEST_F(CVSwapFileTest, takesAnEmptyPlace) {
    const CVSwapResult result = CVSwapFile(mFresh, mTarget, std::nullopt, CVFormerFile::Kept);
    EXPECT_TRUE(result.ok() && result.isPlaced && result.isExpected);
    EXPECT_EQ(result.former, QString());
    EXPECT_EQ(readFile(mTarget), "new");
    EXPECT_EQ(namesIn(mFolder), QStringList({"target"}));
}

TEST_F(CVSwapFileTest, dropsTheExpectedFile) {
    writeFile(mTarget, "old");
    const CVSwapResult result = CVSwapFile(mFresh, mTarget, CVFileSignature::of(mTarget), CVFormerFile::Dropped);
    EXPECT_TRUE(result.ok() && result.isPlaced && result.isExpected);
    EXPECT_EQ(readFile(mTarget), "new");
    EXPECT_EQ(namesIn(mFolder), QStringList({"target"}));
}

TEST_F(CVSwapFileTest, keepsTheExpectedFileWhereItIsAskedTo) {
    writeFile(mTarget, "old");
    const CVSwapResult result = CVSwapFile(mFresh, mTarget, CVFileSignature::of(mTarget), CVFormerFile::Kept);
    EXPECT_TRUE(result.ok() && result.isPlaced && result.isExpected);
    EXPECT_EQ(readFile(mTarget), "new");
    EXPECT_EQ(readFile(result.former), "old");
}

TEST_F(CVSwapFileTest, keepsAnyOtherFile) {
    writeFile(mTarget, "old");
    const auto expected = CVFileSignature::of(mTarget);
    writeFile(mTarget, "theirs");
    for (const auto& signature : {expected, std::optional<CVFileSignature>()}) {
        writeFile(mFresh, "new");
        writeFile(mTarget, "theirs");
        const CVSwapResult result = CVSwapFile(mFresh, mTarget, signature, CVFormerFile::Dropped);
        EXPECT_TRUE(result.isPlaced);
        EXPECT_FALSE(result.isExpected);
        EXPECT_EQ(readFile(mTarget), "new");
        EXPECT_EQ(readFile(result.former), "theirs");
    }
}

TEST_F(CVSwapFileTest, keepsAFolderAndALink) {
    writeFile(mTarget + "/inside", "old");
    const CVSwapResult folder =
        CVSwapFile(mFresh, mTarget, CVFileSignature::of(mTarget + "/inside"), CVFormerFile::Dropped);
    EXPECT_TRUE(folder.isPlaced);
    EXPECT_FALSE(folder.isExpected);
    EXPECT_EQ(readFile(folder.former + "/inside"), "old");

    const QString other = mHome.path(QStringLiteral("other"));
    writeFile(other, "elsewhere");
    const QString fresh = mFolder + QStringLiteral("/second");
    writeFile(fresh, "newer");
    ASSERT_TRUE(QFile::remove(mTarget));
    makeLink(other, mTarget);
    const CVSwapResult link = CVSwapFile(fresh, mTarget, CVFileSignature::of(other), CVFormerFile::Dropped);
    EXPECT_TRUE(link.isPlaced);
    EXPECT_FALSE(link.isExpected) << "a link is not the file that it leads to";
    EXPECT_TRUE(QFileInfo(link.former).isSymLink());
    EXPECT_EQ(readFile(other), "elsewhere");
}

TEST_F(CVSwapFileTest, saysWhyItFailed) {
    const CVSwapResult result =
        CVSwapFile(mFresh, mHome.path(QStringLiteral("nowhere/target")), std::nullopt, CVFormerFile::Kept);
    EXPECT_FALSE(result.ok());
    EXPECT_FALSE(result.isPlaced);
    EXPECT_EQ(readFile(mFresh), "new");
}

} // namespace
