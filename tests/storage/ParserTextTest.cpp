#include "kit/CommaLocale.h"
#include "storage/ParsedBudget.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <ostream>

namespace {

/// The content of a set's element, and the resulting name.
struct TextRow {
    const char* behaviour;
    QByteArray content;
    QString text;
};

void PrintTo(const TextRow& row, std::ostream* out) {
    *out << row.behaviour;
}

QString nameFrom(const QByteArray& content) {
    ParsedBudget budget(inRoot("<TransactionSet id=\"1\">" + content + "</TransactionSet>"));
    EXPECT_TRUE(budget.read()) << budget.message().toStdString();
    return budget.document().transactionSets().at(0)->transactionSetName();
}

class ParserText : public testing::TestWithParam<TextRow> {};

TEST_P(ParserText, isWhatStandsInTheElement) {
    EXPECT_EQ(nameFrom(GetParam().content), GetParam().text);
}

const std::vector<TextRow> kTexts{
    {"plain letters", "Checking", "Checking"},
    {"letters of other scripts", "Gr\u00fc\u00dfe \u98df \U0001F600",
     QString::fromUtf8("Gr\u00fc\u00dfe \u98df \U0001F600")},
    {"the predefined entities", "&amp;&lt;&gt;&quot;&apos;", "&<>\"'"},
    {"an entity that was escaped itself", "&amp;lt;", "&lt;"},
    {"character references", "&#65;&#x263A;", QString::fromUtf8("A\u263A")},
    {"blanks alone", "  \t ", "  \t "},
    {"blanks around", " a ", " a "},
    {"line feeds", "a\nb\n", "a\nb\n"},
    {"line ends of other systems are line feeds", "a\r\nb\rc", "a\nb\nc"},
    {"marked sections", "a<![CDATA[<b>&amp;]]>c", "a<b>&amp;c"},
    {"comments leave no trace", "a<!-- b -->c", "ac"},
    {"processing instructions leave no trace", "a<?b c?>d", "ad"},
    {"nothing", "", ""},
};

INSTANTIATE_TEST_SUITE_P(all, ParserText, testing::ValuesIn(kTexts));

TEST(ParserText, thatArrivesInPiecesIsPutTogether) {
    // Far longer than one piece from libxml2, which also splits a text at every entity and every line end.
    QString text;
    for (int i = 0; text.size() < 64 * 1024; ++i)
        text += QStringLiteral("%1 & Söhne <食>\n\U0001F600").arg(i);
    const QByteArray escaped = text.toHtmlEscaped().toUtf8();
    ParsedBudget budget(inRoot("<Transaction><PayToFrom>" + escaped + "</PayToFrom><For>" + escaped +
                               "</For></Transaction><Category id=\"1\">" + escaped + "</Category>"));
    ASSERT_TRUE(budget.read());
    EXPECT_TRUE(budget.document().transactions().at(0)->payTo() == text);
    EXPECT_TRUE(budget.document().transactions().at(0)->xfor() == text);
    EXPECT_TRUE(budget.document().categories().at(0)->categoryName() == text);
}

TEST(ParserText, ofEqualLettersIsStoredOnce) {
    ParsedBudget budget(inRoot("<Transaction><PayToFrom>Market</PayToFrom><For>Food</For></Transaction>"
                               "<Transaction><PayToFrom>Mark&#101;t</PayToFrom><For>Market</For></Transaction>"
                               "<Category id=\"1\">Market</Category>"));
    const auto& transactions = budget.document().transactions();
    ASSERT_EQ(transactions.size(), 2U);
    const QChar* const letters = transactions[0]->payTo().constData();
    EXPECT_EQ(transactions[1]->payTo().constData(), letters);
    EXPECT_EQ(transactions[1]->xfor().constData(), letters);
    EXPECT_EQ(budget.document().categories().at(0)->categoryName().constData(), letters);
    EXPECT_NE(transactions[0]->xfor().constData(), letters);
}

TEST(ParserText, thatIsCollectedCanBeTakenOnce) {
    CVDocumentParserDelegate parser;
    parser.appendCharacters("lost", 4);
    EXPECT_FALSE(parser.isStoringCharacters());
    parser.setStoringCharacters(true);
    EXPECT_TRUE(parser.isStoringCharacters());
    parser.appendCharacters("12.5", 4);
    parser.appendCharacters(" each", 5);
    parser.setWorkingOnUnknownTag(true);
    parser.appendCharacters("skipped", 7);
    parser.setWorkingOnUnknownTag(false);
    EXPECT_EQ(parser.tempParsingString(), "12.5 each");
    EXPECT_EQ(parser.tempParsingString(), "");
    EXPECT_FALSE(parser.tempParsingString().isNull());
    parser.appendCharacters("12.5 each", 9);
    EXPECT_EQ(parser.tempParsingStringDoubleValue(), 12.5);
    EXPECT_EQ(parser.tempParsingStringDoubleValue(), 0);
}

TEST(ParserText, thatIsNotUtf8IsNull) {
    CVDocumentParserDelegate parser;
    parser.setStoringCharacters(true);
    parser.appendCharacters("a\xff", 2);
    EXPECT_TRUE(parser.tempParsingString().isNull());
    parser.appendCharacters("a", 1);
    EXPECT_EQ(parser.tempParsingString(), "a");
}

TEST(ParserText, isNotMixedUpHoweverManyThereAre) {
    constexpr int kManyTexts = 3000;
    const auto text = [](int number) { return QStringLiteral("Text %1").arg(number % (kManyTexts / 2)); };
    QByteArray sets;
    for (int i = 0; i < kManyTexts; ++i)
        sets += "<TransactionSet id=\"" + QByteArray::number(i + 1) + "\">" + text(i).toUtf8() + "</TransactionSet>";
    ParsedBudget budget(inRoot(sets));
    ASSERT_TRUE(budget.read()) << budget.message().toStdString();
    ASSERT_EQ(budget.document().transactionSets().size(), static_cast<std::size_t>(kManyTexts));
    for (int i = 0; i < kManyTexts; ++i)
        ASSERT_EQ(budget.document().transactionSets()[static_cast<std::size_t>(i)]->transactionSetName(), text(i));
}

TEST(ParserText, ofNumbersIsReadAlikeWhereTheCommaIsTheDecimalMark) {
    const CommaLocale german;
    if (!german.isInForce())
        GTEST_SKIP() << "this machine has no German locale and cannot make one";
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::German));
    ParsedBudget budget(inRoot("<Transaction><Data date=\"2014/03/07\" amount=\"1234.50\"/></Transaction>"
                               "<Category id=\"1\">a<ExpenseEstimates target=\"1,5\"/></Category>"));
    QLocale::setDefault(previous);
    EXPECT_EQ(budget.records(), QStringList({"T date=2014/03/07 amount=1234.5", "C id=1 name='a' target=1"}));
}

} // namespace
