#include "storage/ParsedBudget.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using Part = std::optional<QByteArray>;

constexpr const char* kNoSaltStart = "Error loading document: Could not find start of Password Salt.";
constexpr const char* kNoSaltEnd = "Error loading document: Could not find end of Password Salt.";
constexpr const char* kNoCipherStart = "Error loading encrypted document: could not find start of encrypted data";
constexpr const char* kNoCipherEnd = "Error loading encrypted document: could not find end of encrypted data";

constexpr const char* kHead = R"(<?xml version="1.0" encoding="UTF-8"?><EncryptedData>)";
constexpr const char* kSalt = "<Salt><Specified>c2FsdA==</Specified></Salt>";
constexpr const char* kVector = "AAECAwQFBgcICQoLDA0ODw==";
const QByteArray kVectorBytes("\x00\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a\x0b\x0c\x0d\x0e\x0f", 16);

/// The content after the head of an encrypted file, the parts of it that are kept, and the log lines.
struct EncryptedRow {
    const char* behaviour;
    QByteArray rest;
    Part salt;
    Part vector;
    Part cipher;
    QStringList log;
};

void PrintTo(const EncryptedRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class EncryptedFile : public testing::TestWithParam<EncryptedRow> {};

TEST_P(EncryptedFile, isTakenApartAndNeverParsed) {
    const EncryptedRow& row = GetParam();
    ParsedBudget budget(kHead + row.rest + "<!-- filled up -->");
    EXPECT_TRUE(budget.parser().isEncrypted());
    EXPECT_EQ(budget.parser().saltData(), row.salt);
    EXPECT_EQ(budget.parser().ivData(), row.vector);
    EXPECT_EQ(budget.parser().encryptedData(), row.cipher);
    EXPECT_EQ(budget.log(), row.log);
    EXPECT_FALSE(budget.read());
    EXPECT_FALSE(budget.parser().decryptWithKey(QStringLiteral("key")));
    EXPECT_EQ(budget.message(), "the file is encrypted, and Corvella cannot open encrypted files");
    EXPECT_EQ(budget.records(), QStringList());
    EXPECT_EQ(budget.saves().count(), 0);
}

QByteArray cipher(const QByteArray& text) {
    return "<CipherData><CipherValue>" + text + "</CipherValue></CipherData></EncryptedData>";
}

const std::vector<EncryptedRow> kEncryptedFiles{
    {"a whole file", kSalt + cipher(QByteArray(kVector) + "Y2lwaGVy"), "salt", kVectorBytes, "cipher", {}},
    {"an empty cipher", kSalt + cipher(kVector), "salt", kVectorBytes, "", {}},
    {"line breaks in the cipher",
     kSalt + cipher(QByteArray(kVector) + "Y2lw\naGVy\n"),
     "salt",
     kVectorBytes,
     "cipher",
     {}},
    {"an empty salt",
     "<Salt><Specified></Specified></Salt>" + cipher(QByteArray(kVector) + "Y2lwaGVy"),
     "",
     kVectorBytes,
     "cipher",
     {}},
    {"of several salts the first",
     kSalt + QByteArray("<Salt><Specified>b3RoZXI=</Specified></Salt>") + cipher(QByteArray(kVector) + "Y2lwaGVy"),
     "salt",
     kVectorBytes,
     "cipher",
     {}},
    {"the last end of a cipher counts",
     kSalt + cipher(QByteArray(kVector) + "Y2lw") + "aGVy</CipherValue>",
     "salt",
     kVectorBytes,
     QByteArray::fromBase64("Y2lw</CipherValue></CipherData></EncryptedData>aGVy"),
     {}},
    {"no salt", cipher(kVector), {}, {}, {}, {kNoSaltStart}},
    {"a salt of another form",
     "<Salt> <Specified>c2FsdA==</Specified></Salt>" + cipher(kVector),
     {},
     {},
     {},
     {kNoSaltStart}},
    {"a salt without an end", "<Salt><Specified>c2FsdA==" + cipher(kVector), {}, {}, {}, {kNoSaltEnd}},
    {"an end of the salt before its start only",
     "</Specified><Salt><Specified>c2FsdA==" + cipher(kVector),
     {},
     {},
     {},
     {kNoSaltEnd}},
    {"no cipher", kSalt, "salt", {}, {}, {kNoCipherStart}},
    {"a cipher before the end of the salt only",
     "<Salt><Specified><CipherValue>c2FsdA==</Specified>",
     QByteArray::fromBase64("<CipherValue>c2FsdA=="),
     {},
     {},
     {kNoCipherStart}},
    {"a cipher without an end",
     kSalt + QByteArray("<CipherValue>") + kVector + "Y2lwaGVy",
     "salt",
     kVectorBytes,
     {},
     {kNoCipherEnd}},
    {"a cipher that ends within the vector",
     kSalt + QByteArray("<CipherValue>AAEC</CipherValue>"),
     "salt",
     QByteArray::fromBase64("AAEC</CipherValue><!-- f"),
     {},
     {}},
};

INSTANTIATE_TEST_SUITE_P(all, EncryptedFile, testing::ValuesIn(kEncryptedFiles));

TEST(EncryptedStart, isLookedForInTheFirst64BytesAlone) {
    struct Position {
        int blanks;
        bool encrypted;
    };
    const QByteArray start = "<EncryptedData";
    for (const Position& row :
         {Position{0, true}, Position{49, true}, Position{50, true}, Position{51, false}, Position{64, false}}) {
        const QByteArray bytes = QByteArray(row.blanks, ' ') + start + "/>" + QByteArray(64, ' ');
        const ParsedBudget budget(bytes);
        CVDocumentParserDelegate parser;
        EXPECT_TRUE(parser.prepareFromData(bytes));
        EXPECT_EQ(parser.isEncrypted(), row.encrypted) << row.blanks;
        EXPECT_EQ(parser.decryptWithKey({}), !row.encrypted) << row.blanks;
    }
}

TEST(EncryptedStart, isLookedForToTheLetter) {
    for (const QByteArray& start : {QByteArray("<encryptedData>"), QByteArray("< EncryptedData>"),
                                    QByteArray("EncryptedData>"), QByteArray("<Encrypted Data>")}) {
        CVDocumentParserDelegate parser;
        EXPECT_TRUE(parser.prepareFromData(start + QByteArray(64, ' ')));
        EXPECT_FALSE(parser.isEncrypted()) << start.constData();
    }
    CVDocumentParserDelegate parser;
    EXPECT_TRUE(parser.prepareFromData("<EncryptedDatas>" + QByteArray(64, ' ')));
    EXPECT_TRUE(parser.isEncrypted());
}

} // namespace
