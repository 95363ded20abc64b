#include "ParserProperty.h"
#include "storage/ParsedBudget.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <ctime>
#include <ostream>

namespace {

constexpr qsizetype kElevenMB = 11 * 1000 * 1000;
const QByteArray kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

enum class Result { Read, Malformed };

struct HostileRow {
    const char* behaviour;
    QByteArray bytes;
    Result result;
    /// The records of a file that can be read.
    QStringList records = {};
};

void PrintTo(const HostileRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class HostileInput : public testing::TestWithParam<HostileRow> {};

TEST_P(HostileInput, hasADefinedResult) {
    const HostileRow& row = GetParam();
    ParsedBudget budget(row.bytes);
    EXPECT_EQ(budget.read(), row.result == Result::Read) << budget.message().toStdString();
    if (row.result == Result::Read)
        EXPECT_EQ(budget.records(), row.records);
    else
        EXPECT_TRUE(budget.holdsDefaults());
    EXPECT_EQ(budget.message().isEmpty(), row.result == Result::Read);
    EXPECT_EQ(brokenParserProperty(row.bytes), QString());
}

QByteArray category(const QByteArray& name) {
    return "<CorvellaDocument><Category id=\"1\">" + name + "</Category></CorvellaDocument>";
}

QByteArray inCategory(const QByteArray& name) {
    return kDeclaration + category(name);
}

QByteArray withDoctype(const QByteArray& doctype, const QByteArray& name) {
    return kDeclaration + "<!DOCTYPE CorvellaDocument " + doctype + ">\n" + category(name);
}

/// Entities that each contain the one before ten times, ten levels deep: thousands of millions of characters when
/// expanded.
QByteArray billionLaughs() {
    QByteArray entities = "[<!ENTITY e0 \"ha\">";
    for (int level = 1; level <= 9; ++level) {
        const QByteArray inner = "&e" + QByteArray::number(level - 1) + ';';
        entities += "<!ENTITY e" + QByteArray::number(level) + " \"" + inner.repeated(10) + "\">";
    }
    return withDoctype(entities + ']', "&e9;");
}

QByteArray nested(const QByteArray& name, qsizetype depth) {
    return QByteArray('<' + name + '>').repeated(depth) + QByteArray("</" + name + '>').repeated(depth);
}

QByteArray encoded(const char* encoding, const QByteArray& bytes) {
    return "<?xml version=\"1.0\" encoding=\"" + QByteArray(encoding) + "\"?>\n" + category(bytes) + QByteArray(8, ' ');
}

QByteArray markedUtf16(const QString& text) {
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return {reinterpret_cast<const char*>(marked.utf16()), marked.size() * 2};
}

const QStringList kGreetings{QString::fromUtf8("C id=1 name='Gr\u00fc\u00dfe'")};

const std::vector<HostileRow> kEntities{
    {"thousands of millions of laughs", billionLaughs(), Result::Malformed},
    {"an entity of the file's own", withDoctype("[<!ENTITY a \"b\">]", "&a;"), Result::Malformed},
    {"an entity that holds itself", withDoctype("[<!ENTITY a \"&a;\">]", "&a;"), Result::Malformed},
    {"parameter entities that hold each other",
     withDoctype("[<!ENTITY % a \"&#37;b;\"><!ENTITY % b \"&#37;a;\">%a;]", "c"), Result::Malformed},
    {"default attributes of a document type are not applied",
     withDoctype("[<!ATTLIST Category id CDATA \"9\"><!ATTLIST ExpenseEstimates target CDATA \"5\">]",
                 "c<ExpenseEstimates/>"),
     Result::Read,
     {"C id=1 name='c'"}},
    {"a predefined entity declared otherwise means what it always means",
     withDoctype("[<!ENTITY amp \"b\">]", "a&amp;"),
     Result::Read,
     {"C id=1 name='a&'"}},
    {"a document type that never ends", kDeclaration + "<!DOCTYPE CorvellaDocument [" + QByteArray(1000, '<'),
     Result::Malformed},
};

const std::vector<HostileRow> kSizes{
    {"elements 100,000 deep", inRoot(nested("a", 100'000)), Result::Malformed},
    {"elements 100,000 deep inside a record", inRoot("<Transaction>" + nested("a", 100'000) + "</Transaction>"),
     Result::Malformed},
    {"transactions 100,000 deep", inRoot(nested("Transaction", 100'000)), Result::Malformed},
    {"100,000 start tags and no end", kDeclaration + "<CorvellaDocument>" + QByteArray("<Category>").repeated(100'000),
     Result::Malformed},
    {"an attribute of 11 MB", inRoot("<Transaction categoryID=\"" + QByteArray(kElevenMB, '1') + "\"/>"),
     Result::Malformed},
    {"an element name of 11 MB", inRoot('<' + QByteArray(kElevenMB, 'a') + "/>"), Result::Malformed},
    {"a comment of 11 MB", inRoot("<!--" + QByteArray(kElevenMB, 'a') + "-->"), Result::Read},
    {"a marked section of 11 MB", inCategory("<![CDATA[" + QByteArray(kElevenMB, 'a') + "]]>"), Result::Malformed},
    {"an entity name of 11 MB", inCategory('&' + QByteArray(kElevenMB, 'a') + ';'), Result::Malformed},
};

const std::vector<HostileRow> kBytes{
    {"a NUL in a text", inCategory(QByteArray("a\0b", 3)), Result::Malformed},
    {"a NUL in an attribute", inRoot(QByteArray("<Transaction categoryID=\"1\0\"/>", 30)), Result::Malformed},
    {"a NUL in a tag", inRoot(QByteArray("<Trans\0action/>", 15)), Result::Malformed},
    {"a NUL between tags", inRoot(QByteArray("<Transaction/>\0<Transaction/>", 29)), Result::Malformed},
    {"nothing but NULs", QByteArray(4096, '\0'), Result::Malformed},
    {"NULs before the file", QByteArray(16, '\0') + inCategory("a"), Result::Malformed},
    {"NULs behind the file", inCategory("a") + QByteArray(4096, '\0'), Result::Read, {"C id=1 name='a'"}},
    {"a reference to NUL", inCategory("a&#0;"), Result::Malformed},
    {"a control character", inCategory("a\x01"), Result::Malformed},
    {"a reference to a control character", inCategory("a&#1;"), Result::Malformed},
    {"a reference to half a pair", inCategory("a&#xD83D;"), Result::Malformed},
    {"a reference beyond Unicode", inCategory("a&#x110000;"), Result::Malformed},
    {"a byte that begins no character", inCategory("a\xff"), Result::Malformed},
    {"a byte that continues nothing", inCategory("a\x80"), Result::Malformed},
    {"a character cut short", inCategory("a\xe9\xa3"), Result::Malformed},
    {"an overlong character", inCategory("a\xc0\xaf"), Result::Malformed},
    {"half a pair in UTF-8", inCategory("a\xed\xa0\xbd"), Result::Malformed},
    {"U+FFFE", inCategory("a\xef\xbf\xbe"), Result::Malformed},
    {"invalid UTF-8 in an attribute", inRoot("<Transaction categoryID=\"\xff\"/>"), Result::Malformed},
    {"text before the root", "x" + inCategory("a"), Result::Malformed},
    {"a second root", inCategory("a") + "<CorvellaDocument/>", Result::Malformed},
    {"no root", kDeclaration + QByteArray(64, ' '), Result::Malformed},
    {"an attribute twice", inRoot("<Transaction flag=\"0\" flag=\"1\"/>"), Result::Malformed},
    {"an attribute without quotes", inRoot("<Transaction flag=1/>"), Result::Malformed},
};

const std::vector<HostileRow> kEncodings{
    {"ISO-8859-1 that is declared",
     encoded("ISO-8859-1", "Gr\xfc\xdf"
                           "e"),
     Result::Read, kGreetings},
    {"ISO-8859-1 declared as UTF-8",
     encoded("UTF-8", "Gr\xfc\xdf"
                      "e"),
     Result::Malformed},
    {"UTF-8 with a byte order mark", "\xef\xbb\xbf" + encoded("UTF-8", "Gr\u00fc\u00dfe"), Result::Read, kGreetings},
    {"UTF-16 with a byte order mark", markedUtf16(QString::fromUtf8(encoded("UTF-16", "Gr\u00fc\u00dfe"))),
     Result::Read, kGreetings},
    {"an unknown encoding", encoded("x-of-our-own", "a"), Result::Malformed},
    {"an empty encoding", encoded("", "a"), Result::Malformed},
};

INSTANTIATE_TEST_SUITE_P(entities, HostileInput, testing::ValuesIn(kEntities));
INSTANTIATE_TEST_SUITE_P(sizes, HostileInput, testing::ValuesIn(kSizes));
INSTANTIATE_TEST_SUITE_P(bytes, HostileInput, testing::ValuesIn(kBytes));
INSTANTIATE_TEST_SUITE_P(encodings, HostileInput, testing::ValuesIn(kEncodings));

TEST(HostileText, of11MBIsReadWhole) {
    const QByteArray text = QByteArray("a & b ").repeated(kElevenMB / 6);
    ParsedBudget budget(inRoot("<Transaction><For>" + QByteArray(text).replace('&', "&amp;") + "</For></Transaction>"));
    ASSERT_TRUE(budget.read()) << budget.message().toStdString();
    EXPECT_TRUE(budget.document().transactions().at(0)->xfor().toUtf8() == text);
}

TEST(HostileText, ofManyErrorsEndsSoon) {
    ParsedBudget budget(inRoot(QByteArray("&a;").repeated(kElevenMB / 3)));
    EXPECT_FALSE(budget.read());
    EXPECT_LE(budget.log().size(), 21);
}

/// One element with `count` attributes, each with `rest` after its name.
QByteArray withAttributes(int count, const char* rest) {
    QByteArray attributes;
    for (int i = 0; i < count; ++i)
        attributes += " a" + QByteArray::number(i) + rest;
    return inRoot("<Transaction" + attributes + "/>");
}

/// The processor time for reading, in ticks of std::clock().
std::clock_t timeToRead(const QByteArray& bytes) {
    const std::clock_t start = std::clock();
    const ParsedBudget budget(bytes);
    return std::clock() - start;
}

/// Four times as many attributes may take four times as long, not sixteen times: a file of some megabytes must not
/// block the program.
TEST(HostileAttributes, withoutNumberTakeTimeInProportion) {
    constexpr std::clock_t kNoise = CLOCKS_PER_SEC / 50;
    for (const char* rest : {"=\"\"", "=''", "=\">\"", " = \"\"", "=\n'='", "=\"a='b' c='d'\""})
        EXPECT_LT(timeToRead(withAttributes(40'000, rest)), 8 * (timeToRead(withAttributes(10'000, rest)) + kNoise))
            << rest;
    const auto utf16 = [](const QByteArray& bytes) {
        return markedUtf16(QString::fromUtf8(bytes).replace(QLatin1String("UTF-8"), QLatin1String("UTF-16")));
    };
    EXPECT_LT(timeToRead(utf16(withAttributes(40'000, "=''"))),
              8 * (timeToRead(utf16(withAttributes(10'000, "=''"))) + kNoise));
}

TEST(HostileAttributes, ofAReasonableNumberAreRead) {
    ParsedBudget budget(withAttributes(50, "='x'"));
    EXPECT_TRUE(budget.read()) << budget.message().toStdString();
    EXPECT_EQ(budget.records(), QStringList({"T"}));
}

} // namespace
