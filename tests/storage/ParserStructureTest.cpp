#include "storage/ParsedBudget.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

/// Nested elements: which are skipped, what ends the skipping, and whose text counts.
struct StructureRow {
    const char* behaviour;
    QByteArray elements;
    QStringList records;
};

void PrintTo(const StructureRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class ParserStructure : public testing::TestWithParam<StructureRow> {};

TEST_P(ParserStructure, decidesWhatIsRead) {
    ParsedBudget budget(inRoot(GetParam().elements));
    EXPECT_TRUE(budget.read()) << budget.message().toStdString();
    EXPECT_EQ(budget.records(), GetParam().records);
    EXPECT_EQ(budget.parser().currentParsingObject(), nullptr);
}

const std::vector<StructureRow> kUnknownElements{
    {"an unknown element of a transaction is skipped with its contents",
     R"(<Transaction><Note>x<Data amount="1" /><For>y</For></Note><For>z</For></Transaction>)",
     {"T for='z'"}},
    {"an unknown element of a category is skipped with its contents",
     R"(<Category id="1"><Note>x<ExpenseEstimates target="1" /></Note></Category>)",
     {"C id=1 name=''"}},
    {"an unknown element of a set is skipped with its contents",
     R"(<TransactionSet id="1"><Note>x<TransactionSet id="2">y</TransactionSet></Note></TransactionSet>)",
     {"S id=1 name=''"}},
    {"skipping ends with an inner element whose name begins with the skipped one's",
     R"(<Transaction><Note><Data amount="1" /><NoteExtra/><Data amount="2" /></Note></Transaction>)",
     {"T amount=2"}},
    {"skipping ends with an inner element of the same name",
     R"(<Transaction><Note><Note/><Data amount="2" /></Note></Transaction>)",
     {"T amount=2"}},
    {"an inner element with a shorter name does not end the skipping",
     R"(<Transaction><Note><Not/><Data amount="2" /></Note></Transaction>)",
     {"T"}},
    {"an inner element with another name does not end the skipping",
     R"(<Transaction><Note><Extra/><XNote/><note/><Data amount="2" /></Note></Transaction>)",
     {"T"}},
    {"after an early end the rest of the element is read as the record's",
     R"(<Transaction><Note><NoteExtra/><For>a</For><Other><For>b</For></Other></Note></Transaction>)",
     {"T for='a'"}},
    {"one unknown element after the other",
     R"(<Transaction><A><For>a</For></A><B><For>b</For></B><For>c</For></Transaction>)",
     {"T for='c'"}},
    {"element names are compared exactly",
     R"(<Transaction><data amount="1" /><Datas amount="2" /><Dat amount="3" /><PayTo>p</PayTo></Transaction>)",
     {"T"}},
    {"a record inside a record of another kind is unknown",
     R"(<Transaction><Category id="1">a</Category><MiscInfo id="2" /></Transaction>)",
     {"T"}},
};

const std::vector<StructureRow> kRoot{
    {"records in an unknown element of the root are read",
     R"(<Extra><Transaction categoryID="1"/><Deeper><Category id="2">b</Category></Deeper><MiscInfo id="3" /></Extra>)",
     {"M id=3", "T category=1", "C id=2 name='b'"}},
    {"elements of a record mean nothing in the root",
     R"(<Data amount="1" /><PayToFrom>a</PayToFrom><For>b</For><ExpenseEstimates target="1" />)",
     {}},
    {"text in the root belongs to nothing",
     R"(a<TransactionSet id="1">b</TransactionSet>c<Transaction/>d)",
     {"S id=1 name='b'", "T"}},
    {"the names of records are compared exactly", "<transaction/><Transactions/><Categor/><TransactionSets/>", {}},
    {"after the end of a second root element nothing is read",
     R"(<CorvellaDocument><Transaction categoryID="1"/></CorvellaDocument><Transaction categoryID="2"/>)",
     {"T category=1"}},
};

const std::vector<StructureRow> kStoring{
    {"an unknown element in a text ends the text", "<Transaction><For>a<b>c</b>d</For></Transaction>", {"T for='a'"}},
    {"a known element in a text ends the text",
     R"(<Transaction><For>a<Data amount="1" />b</For></Transaction>)",
     {"T amount=1 for='a'"}},
    {"an inner text takes what the outer one had collected",
     "<Transaction><PayToFrom>a<For>b</For>c</PayToFrom></Transaction>",
     {"T payTo='' for='ab'"}},
    {"an unknown element ends the name of a category",
     R"(<Category id="1">a<Odd>b</Odd>c</Category>)",
     {"C id=1 name='a'"}},
    {"an unknown element ends the name of a set",
     R"(<TransactionSet id="1">a<Odd>b</Odd>c</TransactionSet>)",
     {"S id=1 name='a'"}},
    {"text inside the estimates is part of the name",
     R"(<Category id="1">a<ExpenseEstimates>b</ExpenseEstimates>c</Category>)",
     {"C id=1 name='ab'"}},
    {"a set inside a set is that set again, and its end is the end",
     R"(<TransactionSet id="1">a<TransactionSet id="2">b</TransactionSet>c</TransactionSet>)",
     {"S id=2 name='ab'"}},
    {"a category inside a category likewise",
     R"(<Category id="1">a<Category>b</Category>c<ExpenseEstimates target="1" /></Category>)",
     {"C id=1 name='ab'"}},
    {"a text that no element took is the start of the next",
     R"(<Transaction><For>a<Transaction/></For></Transaction><TransactionSet id="1">b</TransactionSet>)",
     {"S id=1 name='ab'", "T"}},
    {"a text that was taken is gone",
     R"(<Transaction><For>a</For></Transaction><TransactionSet id="1">b</TransactionSet><Category/>)",
     {"S id=1 name='b'", "T for='a'", "C name=''"}},
};

INSTANTIATE_TEST_SUITE_P(unknownElements, ParserStructure, testing::ValuesIn(kUnknownElements));
INSTANTIATE_TEST_SUITE_P(root, ParserStructure, testing::ValuesIn(kRoot));
INSTANTIATE_TEST_SUITE_P(storing, ParserStructure, testing::ValuesIn(kStoring));

const QByteArray kLongDeclaration =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- filled up to sixty-four bytes -->";

TEST(ParserRoot, ofAnotherNameYieldsAnEmptyDocumentWithoutAnError) {
    ParsedBudget budget(kLongDeclaration +
                        "<Budget><Transaction/><MiscInfo id=\"4\"/><Category id=\"1\">a</Category></Budget>");
    EXPECT_TRUE(budget.read());
    EXPECT_FALSE(budget.parser().foundRoot());
    EXPECT_EQ(budget.records(), QStringList());
    EXPECT_EQ(budget.log(), QStringList());
    EXPECT_EQ(budget.saves().count(), 0);
}

TEST(ParserRoot, isFoundInsideAnotherElement) {
    ParsedBudget budget(
        kLongDeclaration +
        "<Budget><Transaction/><CorvellaDocument><Transaction categoryID=\"1\"/></CorvellaDocument></Budget>");
    EXPECT_TRUE(budget.parser().foundRoot());
    EXPECT_EQ(budget.records(), QStringList({"T category=1"}));
}

TEST(ParserRoot, isKnownByItsExactName) {
    for (const char* name : {"corvellaDocument", "CorvellaDocuments", "CorvellaDocumen", "x:CorvellaDocument"}) {
        ParsedBudget budget(kLongDeclaration + "<" + name + "><Transaction/></" + name + ">");
        EXPECT_TRUE(budget.read()) << name;
        EXPECT_FALSE(budget.parser().foundRoot()) << name;
        EXPECT_EQ(budget.records(), QStringList()) << name;
    }
}

TEST(ParserRoot, carriesTheFileVersion) {
    struct Version {
        const char* attributes = nullptr;
        std::optional<QString> version;
    };
    const Version rows[]{{"", std::nullopt},
                         {R"(os="Mac OS X" app="a" app_version="3.1")", std::nullopt},
                         {R"(xmlns="")", QString("")},
                         {R"(xmlns="urn:corvella:3")", QString("urn:corvella:3")},
                         {R"(app="a" xmlns="b" os="c")", QString("b")},
                         {R"(xmlns="a&amp;b &lt;&gt;&quot;&apos;")", QString("a&b <>\"'")},
                         {R"(xmlns="&amp;lt;")", QString("&lt;")},
                         {R"(xmlns="&#65;&#x263A;")", QString::fromUtf8("A\u263A")},
                         {R"(xmlns:c="urn:c" XMLNS="d" xmlnsx="e")", std::nullopt}};
    for (const Version& row : rows) {
        ParsedBudget budget(kLongDeclaration + "<CorvellaDocument " + row.attributes + "/>");
        EXPECT_TRUE(budget.read()) << row.attributes;
        EXPECT_EQ(budget.parser().file_version(), row.version) << row.attributes;
    }
}

TEST(ParserRoot, withoutContentsYieldsAnEmptyDocument) {
    ParsedBudget budget(kLongDeclaration + "<CorvellaDocument/>");
    EXPECT_TRUE(budget.read());
    EXPECT_TRUE(budget.parser().foundRoot());
    EXPECT_EQ(budget.records(), QStringList());
}

} // namespace
