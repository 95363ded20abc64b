#include "storage/LogCapture.h"
#include "storage/ParsedBudget.h"
#include "storage/TroubledDevice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

/// A start tag in the fourth line is closed by another name.
const QByteArray kMalformed = inRoot("\n<MiscInfo id=\"40\" current_transaction_set_id=\"27\" />\n"
                                     "<TransactionSet id=\"27\">Checking</TransactionSet><Transaction/>"
                                     "<Category id=\"9\">Odd</Categories>\n<Transaction/>");

TEST(ParserOutcome, ofAPlainFileIsMoreThanAnEmptyDocument) {
    // With a wrong `initialized` field in its handler, libxml2 calls no element callback and reports no error.
    ParsedBudget budget(
        inRoot("<Transaction/><TransactionSet id=\"1\">a</TransactionSet><Category id=\"2\">b</Category>"));
    EXPECT_TRUE(budget.parser().foundRoot());
    EXPECT_EQ(budget.document().transactions().size(), 1U);
    EXPECT_EQ(budget.document().countOfTransactionSets(), 1U);
    EXPECT_EQ(budget.document().countOfCategories(), 1U);
}

TEST(ParserOutcome, withoutADocumentIsAFailure) {
    CVDocumentParserDelegate parser(nullptr);
    EXPECT_TRUE(parser.prepareFromData(inRoot("<Transaction/>")));
    EXPECT_FALSE(parser.parseDocumentData());
}

TEST(ParserOutcome, ofBytesThatCouldNotBeReadIsAFailureAndNoDefaults) {
    BudgetBuilder budget;
    CVDocumentParserDelegate parser(&budget.document());
    TroubledDevice device(inRoot("<Transaction/>"), {.failsAt = 0});
    EXPECT_FALSE(parser.prepareFromDevice(device));
    EXPECT_FALSE(parser.parseDocumentData());
    EXPECT_EQ(parser.errorMessage(), "Input/output error");
    EXPECT_EQ(budget.document().countOfCategories(), 0U);
}

TEST(ParserOutcome, ofMalformedXmlIsTheDefaultsSavedOnce) {
    ParsedBudget budget(kMalformed);
    EXPECT_FALSE(budget.read());
    EXPECT_TRUE(budget.holdsDefaults());
    EXPECT_EQ(budget.saves().count(), 1);
}

TEST(ParserOutcome, ofMalformedXmlKeepsTheSetsThatWereRead) {
    ParsedBudget budget(kMalformed);
    EXPECT_EQ(budget.records().mid(1, 1), QStringList({"S id=27 name='Checking'"}));
    EXPECT_EQ(budget.document().currentTransactionSet(), 27U);
}

TEST(ParserOutcome, ofMalformedXmlLeavesNoIDOfItsSetsToOthers) {
    ParsedBudget budget(inRoot("<MiscInfo id=\"40\" /><TransactionSet id=\"29\">a</TransactionSet>"
                               "<TransactionSet id=\"30\">b</TransactionSet><Category></Categories>"));
    ASSERT_FALSE(budget.read());
    ASSERT_TRUE(budget.holdsDefaults());
    budget.document().setUniqueID(28);
    EXPECT_EQ(budget.document().getUniqueTransactionSetID(), 31U);
}

TEST(ParserOutcome, ofMalformedXmlIsLoggedWithItsNumber) {
    const ParsedBudget budget(kMalformed);
    ASSERT_EQ(budget.log().size(), 2);
    EXPECT_THAT(budget.log().at(0).toStdString(), testing::StartsWith("Opening and ending tag mismatch: Category"));
    EXPECT_EQ(budget.log().at(1), "Document parsing error 76");
}

TEST(ParserOutcome, ofMalformedXmlNamesTheLine) {
    const ParsedBudget budget(kMalformed);
    EXPECT_THAT(budget.message().toStdString(),
                testing::StartsWith("the file is damaged at line 4: Opening and ending tag mismatch: Category"));
}

TEST(ParserOutcome, ofManyErrorsNamesTheFirstAndLogsTheBeginning) {
    ParsedBudget budget(inRoot("\n" + QByteArray("&nothing;\n").repeated(1000)));
    EXPECT_FALSE(budget.read());
    EXPECT_THAT(budget.message().toStdString(), testing::StartsWith("the file is damaged at line 3: "));
    EXPECT_EQ(budget.log().size(), 21);
    EXPECT_EQ(budget.log().last(), "Document parsing error 26");
}

TEST(ParserOutcome, ofAnUnknownEntityIsADamagedFile) {
    const ParsedBudget budget(inRoot("<Category id=\"1\">a&nbsp;b</Category>"));
    EXPECT_FALSE(budget.read());
    EXPECT_THAT(budget.message().toStdString(), testing::HasSubstr("Entity 'nbsp' not defined"));
}

TEST(ParserOutcome, withoutBytesIsTheDefaultsSavedOnce) {
    BudgetBuilder budget;
    SaveCounter saves;
    budget.document().setSaver(&saves);
    budget.transaction({}).category(QStringLiteral("Odd"), 9);
    CVDocumentParserDelegate parser(&budget.document());
    EXPECT_TRUE(parser.parseDocumentData());
    EXPECT_EQ(saves.count(), 1);
    EXPECT_TRUE(budget.document().transactions().empty());
    EXPECT_FALSE(budget.document().doesCategoryNameExist(QStringLiteral("Odd")));
    EXPECT_GT(budget.document().countOfCategories(), 0U);
}

TEST(ParserOutcome, ofEncryptedBytesThatAreParsedAllTheSameIsTheDefaults) {
    const LogCapture capture;
    BudgetBuilder budget;
    SaveCounter saves;
    budget.document().setSaver(&saves);
    CVDocumentParserDelegate parser(&budget.document());
    ASSERT_TRUE(parser.prepareFromData("<EncryptedData><Salt><Specified>c2FsdA==</Specified></Salt>"
                                       "<CipherValue>AAECAwQFBgcICQoLDA0ODw==Y2lwaGVy</CipherValue>"));
    EXPECT_FALSE(parser.parseDocumentData());
    EXPECT_EQ(saves.count(), 1);
    EXPECT_EQ(LogCapture::messages(), QStringList({"Document parsing error 4294967295"}));
}

TEST(ParserOutcome, ofABlockShorterThan64BytesIsARefusal) {
    const QByteArray whole = "<CorvellaDocument><Transaction/></CorvellaDocument>";
    ParsedBudget budget(whole.leftJustified(63));
    EXPECT_FALSE(budget.read());
    EXPECT_EQ(budget.message(), "the file is shorter than 64 bytes");
    EXPECT_EQ(budget.records(), QStringList());
    EXPECT_EQ(budget.saves().count(), 0);

    ParsedBudget longer(whole.leftJustified(64));
    EXPECT_TRUE(longer.read()) << longer.message().toStdString();
    EXPECT_EQ(longer.records(), QStringList({"T"}));

    EXPECT_FALSE(ParsedBudget(QByteArray()).read());
}

TEST(ParserOutcome, leavesNoBytesBehind) {
    BudgetBuilder budget;
    CVDocumentParserDelegate parser(&budget.document());
    EXPECT_FALSE(parser.decryptWithKey(QStringLiteral("key")));
    ASSERT_TRUE(parser.prepareFromData(inRoot("<Transaction/>")));
    EXPECT_TRUE(parser.decryptWithKey(QStringLiteral("key")));
    EXPECT_TRUE(parser.decryptWithKey({}));
    EXPECT_TRUE(parser.parseDocumentData());
    EXPECT_FALSE(parser.decryptWithKey(QStringLiteral("key")));
}

TEST(ParserStack, isTakenDownFromTheTopWhateverTheName) {
    CVDocumentParserDelegate parser;
    CVTransaction first;
    CVTransaction second;
    EXPECT_EQ(parser.currentParsingObject(), nullptr);
    parser.popParsingObjectForEndingElement("Transaction");
    parser.pushParsingObject(&first);
    parser.pushParsingObject(&second);
    EXPECT_EQ(parser.currentParsingObject(), &second);
    parser.popParsingObjectForEndingElement("Category");
    EXPECT_EQ(parser.currentParsingObject(), &first);
    parser.popParsingObjectForEndingElement("");
    EXPECT_EQ(parser.currentParsingObject(), nullptr);
}

TEST(ParserStack, withoutObjectsAnEndTagMeansNothing) {
    CVDocumentParserDelegate parser;
    parser.setStoringCharacters(true);
    parser.endElement("CorvellaDocument");
    EXPECT_TRUE(parser.isStoringCharacters());
}

TEST(ParserSkipping, isToldFromOutsideAndForgottenAtItsEnd) {
    CVDocumentParserDelegate parser;
    CVTransaction record;
    parser.pushParsingObject(&record);
    parser.startElement("Note", nullptr);
    EXPECT_TRUE(parser.isWorkingOnUnknownTag());
    EXPECT_EQ(parser.unknownTag(), "Note");
    parser.endElement("Notable");
    EXPECT_TRUE(parser.isWorkingOnUnknownTag());
    parser.endElement("NoteExtra");
    EXPECT_FALSE(parser.isWorkingOnUnknownTag());
    EXPECT_EQ(parser.unknownTag(), "");
}

} // namespace
