#include "versions/CVKeptCopy.h"

#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const QDateTime kNow(QDate(2014, 3, 7), QTime(9, 5, 3));

class CVKeptCopyTest : public testing::Test {
protected:
    [[nodiscard]] CVKeptCopy keep() const { return CVKeptCopy::keep(mPath, CVKeptReason::Unreadable, kNow); }
    [[nodiscard]] QString inFolder(const QString& name) const { return mFolder + u'/' + name; }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("Quenby Labs/Corvella"));
    QString mPath = mFolder + QStringLiteral("/Corvella Data.corvella");
    QString mCopy = mFolder + QStringLiteral("/Corvella Data (unreadable 2014-03-07 090503).corvella");
};

TEST_F(CVKeptCopyTest, liesBesideTheFileUnderANameWithTheTime) {
    writeFile(mPath, "unreadable");
    const CVKeptCopy kept = keep();
    EXPECT_TRUE(kept.result.ok()) << kept.result.error.toStdString();
    EXPECT_EQ(kept.path, mCopy);
    EXPECT_EQ(readFile(mCopy), "unreadable");
    EXPECT_EQ(namesIn(mFolder).size(), 2);
}

TEST_F(CVKeptCopyTest, saysInItsNameWhyItIsKept) {
    struct Row {
        CVKeptReason reason;
        const char* name;
    };
    QStringList kept;
    for (const auto& [reason, name] :
         {Row{CVKeptReason::Unreadable, "Corvella Data (unreadable 2014-03-07 090503).corvella"},
          Row{CVKeptReason::ChangedOutside, "Corvella Data (changed outside 2014-03-07 090503).corvella"},
          Row{CVKeptReason::AsItWasRead, "Corvella Data (as it was read 2014-03-07 090503).corvella"},
          Row{CVKeptReason::ReplacedWhenMoved, "Corvella Data (replaced when moved 2014-03-07 090503).corvella"}}) {
        writeFile(mPath, name);
        const QString former = inFolder(QStringLiteral("former"));
        writeFile(former, "former");
        EXPECT_EQ(CVKeptCopy::keep(mPath, reason, kNow).path, inFolder(name));
        // The file itself is linked, so that the next row replaces it instead of writing to both names.
        ASSERT_TRUE(QFile::remove(mPath));
        const QString second = inFolder(QString(name).replace(").", " 2)."));
        EXPECT_EQ(CVKeptCopy::keepFormer(former, mPath, reason, kNow).path, second);
        EXPECT_EQ(readFile(inFolder(name)), name);
        EXPECT_EQ(readFile(second), "former");
        EXPECT_TRUE(CVKeptCopy::isNameOfOne(name, mPath)) << name;
        kept += {inFolder(name), second};
    }
    QStringList found = CVKeptCopy::beside(mPath);
    found.sort();
    kept.sort();
    EXPECT_EQ(found, kept);
}

TEST_F(CVKeptCopyTest, leavesTheFormerFileWhereTheLinksGoRoundInACircle) {
    makeLink(mHome.path("b"), mHome.path("a"));
    makeLink(mHome.path("a"), mHome.path("b"));
    const QString former = mHome.path("former");
    writeFile(former, "former");
    const CVKeptCopy kept = CVKeptCopy::keepFormer(former, mHome.path("a"), CVKeptReason::ChangedOutside, kNow);
    EXPECT_FALSE(kept.result.ok());
    EXPECT_EQ(kept.path, former);
    EXPECT_EQ(readFile(former), "former");
}

TEST_F(CVKeptCopyTest, leavesTheFileWhereItIs) {
    writeFile(mPath, "unreadable");
    setMode(mPath, 0640);
    EXPECT_TRUE(keep().result.ok());
    EXPECT_EQ(readFile(mPath), "unreadable");
    EXPECT_EQ(modeOf(mPath), 0640);
    EXPECT_EQ(modeOf(mCopy), 0640);
}

TEST_F(CVKeptCopyTest, ofNothingIsNothing) {
    const CVKeptCopy kept = keep();
    EXPECT_TRUE(kept.result.ok());
    EXPECT_TRUE(kept.path.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(mFolder));
}

TEST_F(CVKeptCopyTest, ofALinkToNothingIsNothing) {
    writeFile(inFolder(QStringLiteral("other")), "other");
    makeLink(QStringLiteral("none"), mPath);
    const CVKeptCopy kept = keep();
    EXPECT_TRUE(kept.result.ok());
    EXPECT_TRUE(kept.path.isEmpty());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Corvella Data.corvella", "other"}));
}

TEST_F(CVKeptCopyTest, ofAnEmptyFileIsAnEmptyFile) {
    writeFile(mPath, "");
    EXPECT_EQ(keep().path, mCopy);
    EXPECT_TRUE(QFileInfo::exists(mCopy));
    EXPECT_EQ(readFile(mCopy), "");
}

TEST_F(CVKeptCopyTest, neverReplacesAnEarlierOne) {
    QStringList copies;
    for (const char* bytes : {"first", "second", "third"}) {
        writeFile(mPath + ".new", bytes);
        ASSERT_EQ(::rename((mPath + ".new").toUtf8().constData(), mPath.toUtf8().constData()), 0);
        copies.append(keep().path);
    }
    EXPECT_EQ(copies,
              QStringList({mCopy, inFolder(QStringLiteral("Corvella Data (unreadable 2014-03-07 090503 2).corvella")),
                           inFolder(QStringLiteral("Corvella Data (unreadable 2014-03-07 090503 3).corvella"))}));
    EXPECT_EQ(readFile(copies[0]), "first");
    EXPECT_EQ(readFile(copies[1]), "second");
    EXPECT_EQ(readFile(copies[2]), "third");
}

TEST_F(CVKeptCopyTest, neverReplacesALinkOrAFolder) {
    writeFile(mPath, "unreadable");
    makeLink(QStringLiteral("none"), mCopy);
    const QString second = inFolder(QStringLiteral("Corvella Data (unreadable 2014-03-07 090503 2).corvella"));
    writeFile(second + "/inside", "inside");
    EXPECT_EQ(keep().path, inFolder(QStringLiteral("Corvella Data (unreadable 2014-03-07 090503 3).corvella")));
    EXPECT_TRUE(QFileInfo(mCopy).isSymLink());
    EXPECT_EQ(readFile(second + "/inside"), "inside");
    EXPECT_FALSE(QFileInfo::exists(inFolder(QStringLiteral("none"))));
}

TEST_F(CVKeptCopyTest, failsWhenAHundredNamesAreTaken) {
    writeFile(mPath, "unreadable");
    writeFile(mCopy, "taken");
    for (int i = 2; i <= 100; ++i)
        writeFile(inFolder(QStringLiteral("Corvella Data (unreadable 2014-03-07 090503 %1).corvella").arg(i)), "taken");
    const CVKeptCopy kept = keep();
    EXPECT_FALSE(kept.result.ok());
    EXPECT_TRUE(kept.path.isEmpty());
    EXPECT_EQ(kept.result.error, "what stands there could not be kept beside it: too many are kept there already");
    const QString link = mHome.path(QStringLiteral("link"));
    makeLink(mPath, link);
    const QString behindLink = CVKeptCopy::keep(link, CVKeptReason::Unreadable, kNow).result.error;
    EXPECT_TRUE(behindLink.startsWith("what stands at “" + mPath + "” could not")) << behindLink.toStdString();
    EXPECT_EQ(readFile(mPath), "unreadable");
    EXPECT_EQ(namesIn(mFolder).size(), 101);
}

TEST_F(CVKeptCopyTest, ofAFolderIsTheFolderItself) {
    writeFile(mPath + "/inside", "inside");
    const CVKeptCopy kept = keep();
    EXPECT_TRUE(kept.result.ok()) << kept.result.error.toStdString();
    EXPECT_EQ(kept.path, mCopy);
    EXPECT_EQ(readFile(mCopy + "/inside"), "inside");
    EXPECT_FALSE(QFileInfo::exists(mPath));
}

TEST_F(CVKeptCopyTest, ofALinkedFileLiesBesideTheFileItself) {
    const QString real = mHome.path(QStringLiteral("Elsewhere/My Budget.data.corvella"));
    writeFile(real, "unreadable");
    writeFile(inFolder(QStringLiteral("other")), "other");
    makeLink(real, mPath);
    const QString copy = mHome.path(QStringLiteral("Elsewhere/My Budget.data (unreadable 2014-03-07 090503).corvella"));
    EXPECT_EQ(keep().path, copy);
    EXPECT_EQ(readFile(copy), "unreadable");
    EXPECT_TRUE(QFileInfo(mPath).isSymLink());
}

TEST_F(CVKeptCopyTest, ofAFileWithoutASuffixHasNone) {
    mPath = inFolder(QStringLiteral("Budget"));
    writeFile(mPath, "unreadable");
    EXPECT_EQ(keep().path, inFolder(QStringLiteral("Budget (unreadable 2014-03-07 090503)")));
}

TEST_F(CVKeptCopyTest, thatWasMovedCanBePutBack) {
    writeFile(mPath + "/inside", "inside");
    const CVKeptCopy kept = keep();
    EXPECT_TRUE(kept.moved);
    EXPECT_TRUE(kept.putBack(mPath));
    EXPECT_EQ(readFile(mPath + "/inside"), "inside");
    EXPECT_EQ(namesIn(mFolder), QStringList({"Corvella Data.corvella"}));
}

TEST_F(CVKeptCopyTest, isNotPutBackOverWhatStandsThereByNow) {
    writeFile(mPath + "/inside", "inside");
    const CVKeptCopy kept = keep();
    QDir().mkpath(mPath);
    EXPECT_FALSE(kept.putBack(mPath));
    EXPECT_EQ(readFile(mCopy + "/inside"), "inside");
    EXPECT_TRUE(namesIn(mPath).isEmpty());
}

TEST_F(CVKeptCopyTest, ofAFileIsNotMoved) {
    writeFile(mPath, "unreadable");
    EXPECT_FALSE(keep().moved);
}

} // namespace
