#include "base/QBXMLText.h"

#include "kit/Printers.h"

#include <QList>

#include <gtest/gtest.h>

#include <random>
#include <span>

namespace {

QByteArray encoded(const QString& text) {
    QByteArray target;
    xml_appendStringEncodedForXML(target, text);
    return target;
}

QString utf16(std::u16string_view units) {
    return QString(reinterpret_cast<const QChar*>(units.data()), static_cast<qsizetype>(units.size()));
}

struct EncodedRow {
    std::u16string_view text;
    QByteArray bytes;
};

const EncodedRow kEncoded[]{
    {u"", ""},
    {u"Checking", "Checking"},
    {u"Dr. Lee & Sons", "Dr. Lee &amp; Sons"},
    {u"a<b>c", "a&lt;b&gt;c"},
    {u"say \"hi\"", "say &quot;hi&quot;"},
    {u"Zoe's", "Zoe's"},
    {u"&amp;", "&amp;amp;"},
    {u"]]>", "]]&gt;"},
    {u"&&<<>>\"\"", "&amp;&amp;&lt;&lt;&gt;&gt;&quot;&quot;"},
    {u"line\nbreak\ttab", "line\nbreak\ttab"},
    // the first and last characters of each length in UTF-8
    {u"\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFD",
     "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD"},
    {u"\U00010000\U0001F355\U0010FFFF", "\xF0\x90\x80\x80\xF0\x9F\x8D\x95\xF4\x8F\xBF\xBF"},
    {u"Müller & Söhne, Straße; 東京", "Müller &amp; Söhne, Straße; 東京"},
    // lone surrogates
    {u"a\xD800z", "a\xEF\xBF\xBDz"},
    {u"a\xDC00z", "a\xEF\xBF\xBDz"},
    {u"\xDBFF", "\xEF\xBF\xBD"},
    {u"\xD800\xD83C\xDF55", "\xEF\xBF\xBD\xF0\x9F\x8D\x95"},
    {u"\xDF55\xD83C", "\xEF\xBF\xBD\xEF\xBF\xBD"},
};

TEST(XMLEncoding, WritesPredefinedEntitiesAndUtf8) {
    for (const EncodedRow& row : kEncoded)
        EXPECT_EQ(encoded(utf16(row.text)), row.bytes);
}

TEST(XMLEncoding, AgreesWithTheToolkitOnUtf8) {
    std::mt19937 engine(1);
    for (int i = 0; i < 2'000; ++i) {
        std::u16string units(engine() % 20, u'\0');
        for (char16_t& unit : units) {
            // Surrogates are drawn often enough to form pairs.
            unit = static_cast<char16_t>(engine() % 3 ? engine() : 0xD800 + engine() % 0x800);
        }
        const QString text = utf16(units);
        // The conversion to UCS-4 replaces lone surrogates.
        const auto ucs4 = text.toUcs4();
        QByteArray expected =
            QString::fromUcs4(reinterpret_cast<const char32_t*>(ucs4.constData()), ucs4.size()).toUtf8();
        expected.replace('&', "&amp;").replace('<', "&lt;").replace('>', "&gt;").replace('"', "&quot;");
        ASSERT_EQ(encoded(text), expected);
        ASSERT_LE(expected.size(), xml_encodedBound(text));
    }
}

TEST(XMLEncoding, WritesNothingForANullText) {
    EXPECT_EQ(encoded(QString()), "");
}

TEST(XMLEncoding, AppendsToWhatIsThere) {
    QByteArray target = "<Category>";
    xml_appendStringEncodedForXML(target, u"R&D");
    xml_appendStringEncodedForXML(target, u"");
    xml_appendStringEncodedForXML(target, u"<");
    EXPECT_EQ(target, "<Category>R&amp;D&lt;");
}

struct DecodedRow {
    const char* text;
    const char* decoded;
};

constexpr DecodedRow kDecoded[]{
    {"", ""},
    {"plain", "plain"},
    {"&amp;&lt;&gt;&quot;&apos;", "&<>\"'"},
    {"&amp;amp;", "&amp;"},
    {"a&#65;b&#x42;c&#x1F355;", "aAbBc🍕"},
    {"&#00065;", "A"},
    {"&#x10FFFF;", "\U0010FFFF"},
    // no references
    {"&", "&"},
    {"&amp", "&amp"},
    {"& amp;", "& amp;"},
    {"&AMP;", "&AMP;"},
    {"&nbsp;", "&nbsp;"},
    {"&;", "&;"},
    {"&#;", "&#;"},
    {"&#x;", "&#x;"},
    {"&#A;", "&#A;"},
    {"&#xG;", "&#xG;"},
    {"&#-5;", "&#-5;"},
    {"&#x110000;", "&#x110000;"},
    {"&#99999999999;", "&#99999999999;"},
    {"AT&T; AT&amp;T", "AT&T; AT&T"},
    {"&&amp;", "&&"},
};

TEST(XMLDecoding, UndoesPredefinedEntitiesAndCharacterReferences) {
    for (const DecodedRow& row : kDecoded)
        EXPECT_EQ(xml_decodedFromXML(QString::fromUtf8(row.text)), QString::fromUtf8(row.decoded)) << row.text;
}

TEST(XMLDecoding, TakesOnlyDigitsForTheNumberOfACharacter) {
    for (const char* const text : {"&#+65;", "&# 65;", "&#65 ;", "&#x+41;", "&#x0x41;", "&#x 41;"})
        EXPECT_EQ(xml_decodedFromXML(QString::fromLatin1(text)), QString::fromLatin1(text));
}

TEST(XMLDecoding, MakesNoCharacterThatXMLDoesNotKnow) {
    for (const char* const text : {"&#0;", "&#x1F;", "&#xD800;", "&#xDFFF;", "&#xFFFE;"})
        EXPECT_EQ(xml_decodedFromXML(QString::fromLatin1(text)), QString::fromLatin1(text));
}

TEST(XMLDecoding, UndoesTheEncoding) {
    for (const EncodedRow& row : kEncoded) {
        const QString text = utf16(row.text);
        if (text.isValidUtf16()) {
            EXPECT_EQ(xml_decodedFromXML(QString::fromUtf8(encoded(text))), text);
        }
    }
}

struct StorableRow {
    std::u16string_view text;
    std::u16string_view storable;
};

constexpr StorableRow kStorable[]{
    {u"", u""},
    {u"Groceries & <more> \"x\" 'y'", u"Groceries & <more> \"x\" 'y'"},
    {u"\t tab and\nline feed ", u"\t tab and\nline feed "},
    // carriage returns come back from a file as line feeds
    {u"a\rb", u"a\nb"},
    {u"a\r\nb", u"a\nb"},
    {u"a\r\r\nb", u"a\n\nb"},
    {u"a\n\rb", u"a\n\nb"},
    {u"a\r", u"a\n"},
    {u"\r\n", u"\n"},
    // controls
    {{u"a\0b", 3}, u"ab"},
    {u"a\u0001\u0008\u000B\u000C\u000E\u001Fb", u"ab"},
    {u"\u0007", u""},
    // allowed by XML although other standards call them controls
    {u"\u007F\u0085\u009F\u2028", u"\u007F\u0085\u009F\u2028"},
    // the ends of the ranges
    {u"\u0020\uD7FF\uE000\uFFFD", u"\u0020\uD7FF\uE000\uFFFD"},
    {u"a\uFFFEb\uFFFFc", u"abc"},
    {u"\uFEFFa", u"\uFEFFa"},
    // pairs stay, lone surrogates are removed
    {u"\U0001F355", u"\U0001F355"},
    {u"\U0001FFFE\U0010FFFF", u"\U0001FFFE\U0010FFFF"},
    {u"a\xD83Cz", u"az"},
    {u"a\xDF55z", u"az"},
    {u"\xD83C", u""},
    {u"\xDF55\xD83C", u""},
    {u"\xD83C\xD83C\xDF55\xDF55", u"\U0001F355"},
};

/// Also that a storable text stays as it is.
void expectStorable(std::span<const StorableRow> rows, QString (*makeStorable)(const QString&)) {
    for (const StorableRow& row : rows) {
        const QString storable = makeStorable(utf16(row.text));
        EXPECT_EQ(storable, utf16(row.storable));
        EXPECT_FALSE(storable.isNull());
        EXPECT_EQ(makeStorable(storable), storable);
    }
}

TEST(XMLStorableText, DropsWhatXMLCannotCarry) {
    expectStorable(kStorable, xml_storableText);
}

constexpr StorableRow kStorableLines[]{
    {u"", u""},
    {u" two  words ", u" two  words "},
    {u"tab\tstays", u"tab\tstays"},
    {u"a\u0001b", u"ab"},
    {u"two\nlines", u"two lines"},
    {u"two\r\nlines", u"two lines"},
    {u"two\rlines", u"two lines"},
    {u"two\u2028lines\u2029and\u0085more", u"two lines and more"},
    {u"two \n\n\t lines", u"two lines"},
    {u"Food\n", u"Food"},
    {u"\nFood", u"Food"},
    {u" \n Food \n ", u"Food"},
    {u"\n", u""},
    {u"\n \n", u""},
};

TEST(XMLStorableLine, HasABlankForEachLineBreakBetweenWords) {
    expectStorable(kStorableLines, xml_storableLine);
    EXPECT_TRUE(xml_storableLine(QString()).isNull());
}

TEST(XMLStorableText, KeepsNull) {
    EXPECT_TRUE(xml_storableText(QString()).isNull());
}

TEST(XMLStorableText, DoesNotCopyATextThatIsClean) {
    const QString text = QStringLiteral("Rent").append(u'!');
    EXPECT_EQ(xml_storableText(text).constData(), text.constData());
}

} // namespace
