#include "storage/CVFileExamination.h"

#include "storage/ParsedBudget.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>
#include <vector>

namespace {

/// The beginning of a tag with `attributes` attributes.
QByteArray tagOf(int attributes, const char* attribute = " a='b'") {
    return "<b" + QByteArray(attribute).repeated(attributes);
}

const QByteArray kAbsurd = tagOf(CVFileExamination::kMostAttributes + 1);
const QByteArray kLargest = tagOf(CVFileExamination::kMostAttributes);

struct Findings {
    bool tooShort;
    bool encrypted;
    bool nul;
    bool absurd;

    bool operator==(const Findings&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Findings& findings) {
    return out << (findings.tooShort ? "short " : "") << (findings.encrypted ? "encrypted " : "")
               << (findings.nul ? "NUL " : "") << (findings.absurd ? "absurd" : "");
}

Findings findingsOf(const CVFileExamination& examination) {
    return {examination.isTooShort(), examination.looksEncrypted(), examination.holdsNul(),
            examination.hasAbsurdElement()};
}

Findings inOnePiece(const QByteArray& bytes) {
    CVFileExamination examination;
    examination.add(bytes);
    return findingsOf(examination);
}

Findings inTwoPieces(const QByteArray& bytes, qsizetype cut) {
    CVFileExamination examination;
    examination.add(bytes.first(cut));
    examination.add(bytes.sliced(cut));
    return findingsOf(examination);
}

Findings inPiecesOf(qsizetype size, const QByteArray& bytes) {
    CVFileExamination examination;
    for (qsizetype at = 0; at < bytes.size(); at += size)
        examination.add(QByteArrayView(bytes).sliced(at, std::min(size, bytes.size() - at)));
    return findingsOf(examination);
}

QByteArray inUtf16(const QByteArray& text, bool isMarked = true) {
    const QString marked = (isMarked ? QString(QChar(QChar::ByteOrderMark)) : QString()) + QString::fromUtf8(text);
    return {reinterpret_cast<const char*>(marked.utf16()), marked.size() * 2};
}

QByteArray inBigUtf16(const QByteArray& text) {
    QByteArray bytes = inUtf16(text);
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

QByteArray inUtf32(const QByteArray& text) {
    const auto units = QString(QChar(QChar::ByteOrderMark) + QString::fromUtf8(text)).toUcs4();
    return {reinterpret_cast<const char*>(units.constData()), units.size() * 4};
}

struct ExaminationRow {
    const char* behaviour;
    QByteArray bytes;
    Findings findings;
};

void PrintTo(const ExaminationRow& row, std::ostream* out) {
    *out << row.behaviour;
}

constexpr Findings kNothing{false, false, false, false};
constexpr Findings kIsShort{true, false, false, false};
constexpr Findings kIsEncrypted{false, true, false, false};
constexpr Findings kHoldsNul{false, false, true, false};
constexpr Findings kIsAbsurd{false, false, false, true};
constexpr Findings kNulAndAbsurd{false, false, true, true};

class FileExamination : public testing::TestWithParam<ExaminationRow> {};

TEST_P(FileExamination, findsTheSameInOnePiece) {
    EXPECT_EQ(inOnePiece(GetParam().bytes), GetParam().findings);
}

TEST_P(FileExamination, findsTheSameWhereverItIsCut) {
    const ExaminationRow& row = GetParam();
    for (qsizetype cut = 0; cut <= row.bytes.size(); ++cut)
        ASSERT_EQ(inTwoPieces(row.bytes, cut), row.findings) << cut;
}

TEST_P(FileExamination, findsTheSameInPiecesOfAnySize) {
    for (const qsizetype size : {1, 2, 3, 5, 63, 64, 65, 499, 501, 4096})
        EXPECT_EQ(inPiecesOf(size, GetParam().bytes), GetParam().findings) << size;
}

const std::vector<ExaminationRow> kStarts{
    {"nothing", "", kIsShort},
    {"63 bytes", QByteArray(63, ' '), kIsShort},
    {"64 bytes", QByteArray(64, ' '), kNothing},
    {"encrypted within 64 bytes", QByteArray("<EncryptedData").rightJustified(64), kIsEncrypted},
    {"encrypted behind 64 bytes", QByteArray("<EncryptedData").rightJustified(65), kNothing},
    {"short and encrypted", "<EncryptedData>", Findings{true, true, false, false}},
    {"a NUL first", '\0' + QByteArray(64, ' '), kHoldsNul},
    {"a NUL last", QByteArray(64, ' ') + '\0', kHoldsNul},
    {"short with a NUL", QByteArray(3, '\0'), Findings{true, false, true, false}},
    {"a NUL in a tag", inRoot(QByteArray("<b\0/>", 5)), kHoldsNul},
    {"a NUL in a comment", inRoot(QByteArray("<!--\0-->", 8)), kHoldsNul},
};

const std::vector<ExaminationRow> kElements{
    {"a budget", inRoot("<Transaction flag=\"1\"><Data amount='1'/></Transaction>"), kNothing},
    {"as many attributes as may be", inRoot(kLargest + "/>"), kNothing},
    {"one more", inRoot(kAbsurd + "/>"), kIsAbsurd},
    {"one more in double quotes", inRoot(tagOf(101, " a=\"'\"") + "/>"), kIsAbsurd},
    {"one more with greater-than signs in them", inRoot(tagOf(101, " a='>'") + "/>"), kIsAbsurd},
    {"one more over lines", inRoot(tagOf(101, "\na\n=\n'\n'") + "/>"), kIsAbsurd},
    {"values without names, which are no attributes", inRoot(tagOf(101, " \"a\"") + ">"), kNothing},
    {"one more without blanks", inRoot(tagOf(101, "a=''") + QByteArray(100, ' ') + "c=''/>"), kIsAbsurd},
    {"one more without an end", inRoot(kAbsurd), kIsAbsurd},
    {"as the root", "<?xml version='1.0'?>" + kAbsurd + "/>", kIsAbsurd},
    {"as the first bytes", kAbsurd + "/>", kIsAbsurd},
    {"behind a byte order mark", "\xef\xbb\xbf" + kAbsurd + "/>", kIsAbsurd},
    {"between many short tags", inRoot(QByteArray("<a/>").repeated(400) + kAbsurd + QByteArray("<a/>").repeated(400)),
     kIsAbsurd},
    {"behind a tag that is not closed", inRoot("<a b='" + kAbsurd + "/>"), kIsAbsurd},
    {"behind an end tag that is not closed", inRoot("</a " + kAbsurd + "/>"), kIsAbsurd},
    {"quotes in a text", inRoot("<a>" + QByteArray("\"\" ''").repeated(200) + "</a>"), kNothing},
    {"quotes in an end tag", inRoot("</a" + QByteArray(" b='c'").repeated(200) + ">"), kNothing},
    {"many elements, each with as many as may be", inRoot(QByteArray(kLargest + "/>").repeated(3)), kNothing},
};

const std::vector<ExaminationRow> kSkipped{
    {"an element in a comment", inRoot("<!-- " + kAbsurd + "/> -->"), kNothing},
    {"an element in a marked section", inRoot("<Category><![CDATA[" + kAbsurd + "/>]]></Category>"), kNothing},
    {"quotes alone in a marked section", inRoot("<![CDATA[" + tagOf(101, " \"a\"") + "]]>"), kNothing},
    {"elements in a comment between tags", inRoot("<a/><!--" + kAbsurd + "><c/>" + kAbsurd + "--><a/>"), kNothing},
    {"in a comment with letters of all kinds", inRoot("<!-- \u00fc\u20ac\U0001F600 " + kAbsurd + " -->"), kNothing},
    {"a comment with marks that do not end it", inRoot("<!--> -> --- >" + kAbsurd + "--->"), kNothing},
    {"a section with marks that do not end it", inRoot("<![CDATA[> ]> ] ]>" + kAbsurd + "]]]>"), kNothing},
    {"a comment over lines and columns", inRoot("<!--\t\r\n " + kAbsurd + "/>\t-->"), kNothing},
    {"a section in a comment", inRoot("<!-- <![CDATA[ -->" + kAbsurd + "/> <!-- ]]> -->"), kIsAbsurd},
    {"a comment in a section", inRoot("<![CDATA[<!--]]>" + kAbsurd + "/><!---->"), kIsAbsurd},
    {"behind a comment", inRoot("<!----><!-- -->" + kAbsurd + "/>"), kIsAbsurd},
    {"behind a section", inRoot("<![CDATA[]]>" + kAbsurd + "/>"), kIsAbsurd},
    {"an element in a comment behind a less-than sign", inRoot("<<!-- " + kAbsurd + "/> -->"), kNothing},
    {"an element in a comment behind a tag without end", inRoot("<a b='<!-- " + kAbsurd + "/> -->"), kNothing},
    {"an element in a comment behind half a character", inRoot("<\xc3<!-- " + kAbsurd + "/> -->"), kNothing},
    {"in what is no comment", inRoot("<!- " + kAbsurd + "/> -->"), kIsAbsurd},
    {"in a section that a control character breaks off", inRoot("<![CDATA[\x01" + kAbsurd + "/>]]>"), kIsAbsurd},
    {"in a section that U+FFFF breaks off", inRoot("<![CDATA[\xef\xbf\xbf" + kAbsurd + "/>]]>"), kIsAbsurd},
    {"in a comment behind another that was broken off", inRoot("<!--\x01--><!-- " + kAbsurd + "/> -->"), kIsAbsurd},
    {"in a comment behind a document type", "<!DOCTYPE a>" + inRoot("<!-- " + kAbsurd + "/> -->"), kIsAbsurd},
    {"in a comment behind a marked declaration", inRoot("<!ELEMENT a ANY><!-- " + kAbsurd + "/> -->"), kIsAbsurd},
    {"in a comment behind an instruction", inRoot("<?a?><!-- " + kAbsurd + "/> -->"), kIsAbsurd},
    {"in a comment behind half a comment's start", inRoot("<!-<!-- " + kAbsurd + "/> -->"), kIsAbsurd},
    {"in a comment behind a declaration that holds a tag", "<?xml <a?>" + inRoot("<!-- " + kAbsurd + "/> -->"),
     kIsAbsurd},
    {"in what is no section", inRoot("<![CDATA " + kAbsurd + "/> ]]>"), kIsAbsurd},
    {"in a comment that a control character breaks off", inRoot("<!--\x01" + kAbsurd + "/>-->"), kIsAbsurd},
    {"in a comment that a wrong byte breaks off", inRoot("<!--\xff" + kAbsurd + "/>-->"), kIsAbsurd},
    {"in a comment that half a character breaks off", inRoot("<!--\xc3" + kAbsurd + "/>-->"), kIsAbsurd},
    {"in a comment that U+FFFE breaks off", inRoot("<!--\xef\xbf\xbe" + kAbsurd + "/>-->"), kIsAbsurd},
    {"in a comment that a NUL breaks off", inRoot(QByteArray("<!--\0", 5) + kAbsurd + "/>-->"), kNulAndAbsurd},
    {"behind a comment that a value of a document type seems to open",
     "<!DOCTYPE a [<!ENTITY b \"<!--\">]>" + kAbsurd + "/>", kIsAbsurd},
    {"behind a comment that an instruction seems to open", inRoot("<?a <!-- ?>" + kAbsurd + "/>"), kIsAbsurd},
    {"behind a comment that the declaration seems to open", "<?xml version='<!--'?>" + kAbsurd + "/>", kIsAbsurd},
    {"behind an instruction and a text with marks", inRoot("<a b='1'>!?</a><?a?>" + kAbsurd + "/>"), kIsAbsurd},
};

const std::vector<ExaminationRow> kWidths{
    {"UTF-16", inUtf16(inRoot("<a b='c'/>")), kNothing},
    {"an absurd element in UTF-16", inUtf16(inRoot(kAbsurd + "/>")), kIsAbsurd},
    {"an absurd element in UTF-16 without a mark", inUtf16(inRoot(kAbsurd + "/>"), false), kIsAbsurd},
    {"an absurd element in big-endian UTF-16", inBigUtf16(inRoot(kAbsurd + "/>")), kIsAbsurd},
    {"an absurd element in UTF-32", inUtf32(inRoot(kAbsurd + "/>")), kIsAbsurd},
    {"a comment in UTF-16", inUtf16(inRoot("<!-- \u00fc\U0001F600 " + kAbsurd + "/>-->")), kNothing},
    {"a NUL in a text in UTF-16", inUtf16(inRoot(QByteArray("<a>\0</a>", 8))), kHoldsNul},
    {"a NUL behind a budget in UTF-16", inUtf16(inRoot("<a/>") + '\0'), kHoldsNul},
    {"letters in UTF-16 that hold the bytes of a tag",
     inUtf16(inRoot("<a>" + QByteArray("\u043c\u3c22\u3c27").repeated(300) + "</a>")), kNothing},
};

INSTANTIATE_TEST_SUITE_P(starts, FileExamination, testing::ValuesIn(kStarts));
INSTANTIATE_TEST_SUITE_P(elements, FileExamination, testing::ValuesIn(kElements));
INSTANTIATE_TEST_SUITE_P(skipped, FileExamination, testing::ValuesIn(kSkipped));
INSTANTIATE_TEST_SUITE_P(widths, FileExamination, testing::ValuesIn(kWidths));

/// The fast search must find the same as an examination byte by byte.
TEST(FileExaminationPieces, OfWordsInAnyOrderAreFoundTheSameWhole) {
    const QByteArrayList words{"<",   "<!--", "-->",  "<![CDATA[", "]]>",    "<a b='c'>", "</a>",  "!", "?",
                               "<?a", "?>",   "\xc3", "\x01",      "\u20ac", kLargest,    kAbsurd, ">", "text "};
    std::mt19937 random(7);
    std::uniform_int_distribution<qsizetype> word(0, words.size() - 1);
    for (int round = 0; round < 1000; ++round) {
        QByteArray bytes = QByteArray("<?xml version='1.0'?>").repeated(round % 2);
        for (int i = 0; i < 20; ++i)
            bytes += words[word(random)];
        const Findings whole = inOnePiece(bytes);
        for (const qsizetype size : {1, 7, 100})
            ASSERT_EQ(inPiecesOf(size, bytes), whole) << bytes.constData();
    }
}

TEST(FileExaminationOfLongSections, LooksBehindThreeMillionUnits) {
    for (const char* const start : {"<!--", "<![CDATA["}) {
        const auto behind = [start](qsizetype units) {
            return inOnePiece(inRoot(start + QByteArray(units, 'x') + kAbsurd + "/>"));
        };
        EXPECT_EQ(behind(2'000'000), kNothing) << start;
        EXPECT_EQ(behind(3'000'001), kIsAbsurd) << start;
    }
}

TEST(FileExaminationOfComments, CountsThemAndCollectsTheFirstWhateverThePieces) {
    QByteArray bytes = QByteArray(70, ' ') + "<a><!-- one --><!----><b c='d'/><!--two-\n-x--><![CDATA[<!-- no -->]]>";
    for (qsizetype cut = 0; cut < bytes.size(); ++cut) {
        for (const bool isUtf16 : {false, true}) {
            const QByteArray all = isUtf16 ? inUtf16(bytes) : bytes;
            CVFileExamination examination;
            examination.add(all.first(cut));
            examination.add(all.sliced(cut));
            EXPECT_EQ(examination.comments(), 3) << cut;
            EXPECT_EQ(examination.firstComments(), QStringList({" one ", "", "two-\n-x"})) << cut;
        }
    }
    for (int i = 0; i < 10; ++i)
        bytes += "<!--" + QByteArray(1000, 'x') + "-->";
    CVFileExamination examination;
    examination.add(bytes);
    EXPECT_EQ(examination.comments(), 13);
    EXPECT_EQ(examination.firstComments().size(), 5);
    EXPECT_EQ(examination.firstComments().constLast(), QString(100, u'x'));
}

TEST(FileExaminationOfABudget, InUtf16IsReadWhole) {
    ParsedBudget budget(inUtf16(inRoot("<Category id=\"1\">a</Category>")));
    EXPECT_TRUE(budget.read()) << budget.message().toStdString();
    EXPECT_TRUE(budget.readWhole());
}

TEST(FileExaminationOfABudget, InUtf32IsRefusedWithWhatHelps) {
    QByteArray bytes = inUtf32(inRoot("<Category id=\"1\">a</Category>"));
    for (const char* const order : {"little-endian", "big-endian"}) {
        ParsedBudget budget(bytes);
        EXPECT_FALSE(budget.read()) << order;
        EXPECT_EQ(budget.message(), "the file is written in UTF-32, which Corvella does not read; save it as UTF-8 in "
                                    "the program that wrote it")
            << order;
        for (qsizetype i = 0; i + 3 < bytes.size(); i += 4)
            std::reverse(bytes.begin() + i, bytes.begin() + i + 4);
    }
}

TEST(FileExaminationOfABudget, WithAnElementInACommentOrASectionIsRead) {
    ParsedBudget budget(inRoot("<!--" + tagOf(200, " \"a\"") + "--><Category id=\"1\"><![CDATA[" +
                               tagOf(101, " \"a\"") + "]]></Category>"));
    EXPECT_TRUE(budget.read()) << budget.message().toStdString();
    EXPECT_EQ(budget.records(), QStringList("C id=1 name='" + QString(tagOf(101, " \"a\"")) + "'"));
}

/// libxml2 treats the rest of an overlong section as elements; none of these may stop the program.
TEST(FileExaminationOfABudget, FindsWhatHidesInASectionThatIsTooLong) {
    const QByteArray absurd = tagOf(20'000, " a=''");
    ParsedBudget budget(inRoot("<![CDATA[" + QByteArray(10'000'010, 'x') + absurd + "/>]]>"));
    EXPECT_FALSE(budget.read());
    EXPECT_EQ(budget.message(), "the file is damaged: an element has more than 100 attributes");
}

} // namespace
