#include "base/CVDefaultsKeys.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "kit/ScratchHome.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVDocumentXML.h"
#include "storage/LogCapture.h"
#include "storage/ParsedBudget.h"
#include "storage/SampleFile.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QDir>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace {

using Outcome = CVLoadReport::Outcome;

/// The program finds an unreadable file at the place of its data file: no byte of it may get lost.
class UnreadableFile : public testing::Test {
protected:
    /// Starts the program.
    void open() {
        mFile = std::make_unique<CVDocumentFile>(mHome.folders(), mHome.userDefaults());
        mDocument = std::make_unique<CVDocument>(mCenter, mHome.userDefaults());
        mReport = mFile->initWithStandardUserFile(*mDocument);
    }
    CVSaveOutcome save() {
        mDocument->workbookSave();
        return mFile->saves().waitForFinished();
    }
    [[nodiscard]] QByteArray text() const { return CVDocumentXMLRepresentation(*mDocument).joined(); }
    /// The path of the only other file beside the data file.
    [[nodiscard]] QString keptCopy() const {
        const QStringList others = namesIn(mFolder).filter(QStringLiteral("unreadable"));
        return others.size() == 1 ? mFolder + u'/' + others.front() : QString();
    }

    ScratchHome mHome;
    QString mFolder = mHome.folders().applicationSupport + QStringLiteral("/Quenby Labs/Corvella");
    QString mPath = mFolder + QStringLiteral("/Corvella Data.corvella");
    QBNotificationCenter mCenter;
    LogCapture mLog;
    std::unique_ptr<CVDocumentFile> mFile;
    std::unique_ptr<CVDocument> mDocument;
    CVLoadReport mReport;
};

struct UnreadableRow {
    const char* behaviour;
    QByteArray bytes;
    Outcome outcome;
    const char* reason;
    /// Whether reading alone makes the program save.
    bool savesByItself;
};

void PrintTo(const UnreadableRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class UnreadableBytes : public UnreadableFile, public testing::WithParamInterface<UnreadableRow> {};

const QByteArray kEncrypted = "<EncryptedData><Salt><Specified>c2FsdA==</Specified></Salt>"
                              "<CipherValue>AAECAwQFBgcICQoLDA0ODw==Y2lwaGVy</CipherValue></EncryptedData>";

const std::vector<UnreadableRow> kUnreadable{
    {"malformed", sampleFile().first(700), Outcome::Unreadable, "the file is damaged at line ", true},
    {"encrypted", kEncrypted, Outcome::Unreadable, "the file is encrypted, and Corvella cannot open encrypted files",
     false},
    {"short", sampleFile().first(63), Outcome::Unreadable, "the file is shorter than 64 bytes", false},
    {"empty", "", Outcome::Unreadable, "the file is shorter than 64 bytes", false},
    {"of another kind", "<?xml version=\"1.0\"?><plist><array><string>somebody's own</string></array></plist>",
     Outcome::NoBudget, "the file is XML but holds no Corvella budget", false},
};

TEST_P(UnreadableBytes, areReportedAndKeptBeforeTheFirstSave) {
    writeFile(mPath, GetParam().bytes);
    setMode(mPath, 0640);
    open();
    EXPECT_EQ(mReport.outcome, GetParam().outcome);
    EXPECT_EQ(mReport.path, mPath);
    EXPECT_TRUE(mReport.reason.startsWith(QLatin1String(GetParam().reason))) << mReport.reason.toStdString();
    EXPECT_TRUE(mDocument->transactions().empty());
    EXPECT_GT(mDocument->countOfCategories(), 0U);

    const CVSaveOutcome outcome = GetParam().savesByItself ? mFile->saves().waitForFinished() : save();
    EXPECT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(readFile(mPath), text());
    EXPECT_EQ(outcome.keptCopy, keptCopy());
    EXPECT_EQ(readFile(keptCopy()), GetParam().bytes);
    EXPECT_EQ(modeOf(keptCopy()), 0640);
    EXPECT_THAT(QFileInfo(keptCopy()).fileName().toStdString(),
                testing::MatchesRegex("Corvella Data \\(unreadable [0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{6}\\)\\.corvella"));
}

TEST_P(UnreadableBytes, areKeptOnce) {
    writeFile(mPath, GetParam().bytes);
    open();
    save();
    mDocument->insertCategoryName(QStringLiteral("New"));
    EXPECT_EQ(save().keptCopy, QString());
    EXPECT_EQ(readFile(mPath), text());
    EXPECT_EQ(namesIn(mFolder).filter(QStringLiteral(".corvella")).size(), 2);
    EXPECT_EQ(readFile(keptCopy()), GetParam().bytes);

    open();
    EXPECT_EQ(mReport.outcome, Outcome::Loaded);
    save();
    EXPECT_EQ(namesIn(mFolder).filter(QStringLiteral(".corvella")).size(), 2);
}

INSTANTIATE_TEST_SUITE_P(all, UnreadableBytes, testing::ValuesIn(kUnreadable));

TEST_F(UnreadableFile, thatIsNotDamagedStaysUntouchedUntilSomethingIsSaved) {
    for (const UnreadableRow& row : kUnreadable) {
        if (row.savesByItself)
            continue;
        writeFile(mPath, row.bytes);
        open();
        mFile.reset();
        EXPECT_EQ(readFile(mPath), row.bytes) << row.behaviour;
        EXPECT_EQ(namesIn(mFolder), QStringList({"Corvella Data.corvella"})) << row.behaviour;
    }
}

TEST_F(UnreadableFile, thatIsAFolderIsMovedAsideWhole) {
    writeFile(mPath + "/inside/deep", "somebody's");
    open();
    EXPECT_EQ(mReport.outcome, Outcome::Unreadable);
    EXPECT_EQ(mReport.path, mPath);
    EXPECT_EQ(mReport.reason, "what stands there is not a file");
    const CVSaveOutcome outcome = save();
    EXPECT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(outcome.keptCopy, keptCopy());
    EXPECT_EQ(readFile(keptCopy() + "/inside/deep"), "somebody's");
    EXPECT_EQ(readFile(mPath), text());
}

TEST_F(UnreadableFile, thatCannotBeReadFromTheDiskIsReported) {
    // Every read through this link fails, and nothing can be written beside its target.
    mHome.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, mHome.path(QStringLiteral("link")));
    makeLink(QStringLiteral("/proc/self/mem"), mHome.path(QStringLiteral("link")));
    mHome.userDefaults().setInteger(CVDefaultsKeys::kNumberOfItems, 25);
    open();
    EXPECT_EQ(mHome.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 25);
    EXPECT_EQ(mReport.outcome, Outcome::NotRead);
    EXPECT_FALSE(mFile->saves().isSaving());
    EXPECT_EQ(mReport.path, mHome.path(QStringLiteral("link")));
    EXPECT_FALSE(mReport.reason.isEmpty());
    const CVSaveOutcome outcome = save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.keptCopy, QString());
    EXPECT_EQ(outcome.message.count(mHome.path(QStringLiteral("link"))), 1) << outcome.message.toStdString();
    EXPECT_TRUE(QFileInfo(mHome.path(QStringLiteral("link"))).isSymLink());
}

TEST_F(UnreadableFile, ofMoreThan2GibibytesIsNotEvenRead) {
    writeFile(mPath, kEncrypted);
    constexpr qint64 kSize = qint64(3) << 30;
    ASSERT_TRUE(QFile::resize(mPath, kSize));
    open();
    EXPECT_EQ(mReport.outcome, Outcome::NotRead);
    EXPECT_EQ(mReport.reason, "the file is larger than 2 GiB");
    EXPECT_TRUE(save().saved);
    EXPECT_EQ(QFileInfo(keptCopy()).size(), kSize);
    EXPECT_EQ(readFile(mPath), text());
}

TEST_F(UnreadableFile, behindALinkIsKeptWhereItLies) {
    const QString real = mHome.path(QStringLiteral("Elsewhere/budget"));
    writeFile(real, kEncrypted);
    QDir().mkpath(mFolder);
    makeLink(real, mPath);
    open();
    const CVSaveOutcome outcome = save();
    EXPECT_TRUE(outcome.saved);
    EXPECT_TRUE(outcome.keptCopy.startsWith(mHome.path(QStringLiteral("Elsewhere/budget (unreadable "))));
    EXPECT_EQ(readFile(outcome.keptCopy), kEncrypted);
    EXPECT_EQ(readFile(real), text());
    EXPECT_TRUE(QFileInfo(mPath).isSymLink());
}

TEST_F(UnreadableFile, ofWhichAPartIsReadIsKeptWholeBeforeTheFirstSave) {
    const QByteArray bytes = sampleFile().replace("\n <MiscInfo", "\n<!-- mine -->\n <MiscInfo");
    writeFile(mPath, bytes);
    setMode(mPath, 0640);
    open();
    EXPECT_EQ(mReport.outcome, Outcome::Loaded);
    EXPECT_EQ(mReport.partly.count, 1);
    EXPECT_EQ(mReport.partly.lines, QStringList{"The comment “mine” is left out."});
    EXPECT_EQ(readFile(mPath), bytes);
    EXPECT_EQ(namesIn(mFolder), QStringList({"Corvella Data.corvella"}));

    mDocument->insertCategoryName(QStringLiteral("New"));
    const CVSaveOutcome outcome = save();
    EXPECT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(readFile(mPath), text());
    EXPECT_EQ(readFile(outcome.keptCopy), bytes);
    EXPECT_EQ(modeOf(outcome.keptCopy), 0640);
    EXPECT_TRUE(CVVersionFolder(mPath).versions().isEmpty()) << "it is kept once";

    mDocument->insertCategoryName(QStringLiteral("Newer"));
    EXPECT_EQ(save().keptCopy, QString());
    open();
    EXPECT_EQ(mReport.partly.count, 0);
}

TEST_F(UnreadableFile, thatEndsAtAZeroByteIsToldAndKept) {
    const QByteArray bytes = sampleFile() + QByteArray("\0 more", 6);
    writeFile(mPath, bytes);
    open();
    EXPECT_EQ(mReport.outcome, Outcome::Loaded);
    EXPECT_EQ(mReport.partly.count, 1);
    EXPECT_EQ(readFile(save().keptCopy), bytes);
}

TEST_F(UnreadableFile, whoseSetsWereReadKeepsThemInTheNewFile) {
    writeFile(mPath, inRoot(R"(<TransactionSet id="1">Checking</TransactionSet><Transaction/><Category id="2">)"));
    open();
    EXPECT_TRUE(mFile->saves().waitForFinished().saved);
    EXPECT_TRUE(readFile(mPath).contains("Checking"));
    EXPECT_EQ(mDocument->countOfTransactionSets(), 1U);
    EXPECT_TRUE(mDocument->transactions().empty());
}

} // namespace
