#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/LogCapture.h"
#include "storage/ParsedBudget.h"
#include "storage/ScratchFiles.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

class PrepareFromFile : public testing::Test {
protected:
    [[nodiscard]] bool prepare(const QByteArray& bytes) {
        writeFile(mPath, bytes);
        return mParser.prepareFromFile(mPath, &mError);
    }

    ScratchHome mHome;
    QString mPath = mHome.path(QStringLiteral("A File.corvella"));
    BudgetBuilder mBudget;
    CVDocumentParserDelegate mParser{&mBudget.document()};
    CVReadError mError;
    LogCapture mLog;
};

TEST_F(PrepareFromFile, keepsTheBytesOfAPlainFile) {
    EXPECT_TRUE(prepare(inRoot("<Transaction/>")));
    EXPECT_FALSE(mParser.isEncrypted());
    EXPECT_TRUE(mParser.parseDocumentData());
    EXPECT_EQ(ParsedBudget::describe(mBudget.document()), QStringList({"T"}));
    EXPECT_EQ(mError.code, 0);
}

TEST_F(PrepareFromFile, keepsAShortFileToo) {
    EXPECT_TRUE(prepare("<CorvellaDocument><Transaction/></CorvellaDocument>"));
    EXPECT_TRUE(mParser.parseDocumentData());
    EXPECT_EQ(ParsedBudget::describe(mBudget.document()), QStringList({"T"}));
}

TEST_F(PrepareFromFile, failsForAMissingFile) {
    EXPECT_FALSE(mParser.prepareFromFile(mPath, &mError));
    EXPECT_EQ(mError.code, CVReadError::kNoSuchFile);
    EXPECT_EQ(mError.path, mPath);
    EXPECT_FALSE(mError.message.isEmpty());
    EXPECT_FALSE(mParser.prepareFromFile(mPath, nullptr));
    EXPECT_FALSE(mParser.decryptWithKey({}));
}

TEST_F(PrepareFromFile, failsForAFolder) {
    EXPECT_FALSE(mParser.prepareFromFile(mHome.path(), &mError));
    EXPECT_NE(mError.code, 0);
    EXPECT_EQ(mError.path, mHome.path());
}

TEST_F(PrepareFromFile, takesAnEncryptedFileApart) {
    EXPECT_TRUE(prepare("<EncryptedData><Salt><Specified>c2FsdA==</Specified></Salt>"
                        "<CipherValue>AAECAwQFBgcICQoLDA0ODw==Y2lwaGVy</CipherValue>"));
    EXPECT_TRUE(mParser.isEncrypted());
    EXPECT_EQ(mParser.saltData(), QByteArray("salt"));
    EXPECT_EQ(mParser.encryptedData(), QByteArray("cipher"));
    EXPECT_FALSE(mParser.decryptWithKey({}));
}

TEST_F(PrepareFromFile, callsAnEncryptedFileWithoutTheEndOfItsCipherCorrupt) {
    EXPECT_FALSE(
        prepare("<EncryptedData><Salt><Specified>c2FsdA==</Specified></Salt><CipherValue>AAECAwQFBgcICQoLDA0O"));
    EXPECT_TRUE(mParser.isEncrypted());
    EXPECT_EQ(mError.code, CVReadError::kCorruptFile);
    EXPECT_EQ(mError.path, mPath);
    EXPECT_EQ(LogCapture::messages(),
              QStringList({"Error loading encrypted document: could not find end of encrypted data"}));
}

TEST_F(PrepareFromFile, callsAnEncryptedFileThatIsNoTextCorrupt) {
    EXPECT_FALSE(prepare("<EncryptedData>\xff<CipherValue>AAEC</CipherValue></EncryptedData>"));
    EXPECT_EQ(mError.code, CVReadError::kCorruptFile);
    EXPECT_EQ(mError.message, "the file is encrypted and damaged");
}

TEST_F(PrepareFromFile, goesOnWithAnEncryptedFileThatLacksItsSalt) {
    EXPECT_TRUE(prepare("<EncryptedData><CipherValue>AAEC</CipherValue></EncryptedData>"));
    EXPECT_TRUE(mParser.isEncrypted());
    EXPECT_EQ(mError.code, 0);
    EXPECT_EQ(LogCapture::messages(), QStringList({"Error loading document: Could not find start of Password Salt."}));
}

TEST_F(PrepareFromFile, saysWhyReadingFailed) {
    // This file can be opened, but every read from its start fails.
    EXPECT_FALSE(mParser.prepareFromFile(QStringLiteral("/proc/self/mem"), &mError));
    EXPECT_EQ(mError.code, CVReadError::kUnknownRead);
    EXPECT_EQ(mError.path, "/proc/self/mem");
    EXPECT_EQ(LogCapture::messages(), QStringList({"Error loading document: " + mError.message}));
    EXPECT_FALSE(mError.message.isEmpty());
}

TEST_F(PrepareFromFile, refusesMoreThan2GibibytesUnread) {
    QFile file(mPath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64(3) << 30));
    file.close();
    const auto peak = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    };
    const auto before = peak();
    EXPECT_FALSE(mParser.prepareFromFile(mPath, &mError));
    EXPECT_EQ(mError.code, CVReadError::kUnknownRead);
    EXPECT_EQ(mError.message, "the file is larger than 2 GiB");
    constexpr long kKilobytesOf100MB = 100L * 1024;
    EXPECT_LT(peak() - before, kKilobytesOf100MB);
}

} // namespace
