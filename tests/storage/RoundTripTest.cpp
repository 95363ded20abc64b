#include "kit/BudgetBuilder.h"
#include "storage/CVDocumentXML.h"
#include "storage/ParsedBudget.h"
#include "storage/SampleFile.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <random>

namespace {

QByteArray textOfDocument(const CVDocument& document) {
    return CVDocumentXMLRepresentation(document).joined();
}

/// Opening and saving a file that this program wrote must not change it: a difference would make backups and version
/// control see a change that the user did not make.
TEST(RoundTrip, ofAFileThatThisProgramWroteChangesNoByte) {
    const QByteArray bytes = sampleFile();
    ParsedBudget budget(bytes);
    ASSERT_TRUE(budget.read()) << budget.message().toStdString();
    EXPECT_EQ(textOfDocument(budget.document()), bytes);
    EXPECT_EQ(budget.records().size(), 1 + 3 + 4 + 3);

    budget.document().sortTransactionsByDate();
    budget.document().updateDates();
    EXPECT_EQ(textOfDocument(budget.document()), bytes);
}

struct Amount {
    double value;
    const char* written;
};

TEST(RoundTrip, ofAmountsKeepsTheCent) {
    for (const Amount& row : {Amount{-0.004, "-0.00"}, Amount{1234567.5, "1234567.50"}, Amount{0.005, "0.01"},
                              Amount{-45.1, "-45.10"}, Amount{1e15, "1000000000000000.00"}, Amount{99.995, "100.00"}}) {
        BudgetBuilder budget;
        budget.transaction({.amount = row.value}).category(QStringLiteral("a"), 1, 0, row.value);
        const QByteArray text = textOfDocument(budget.document());
        EXPECT_TRUE(text.contains(" amount=\"" + QByteArray(row.written) + '"')) << text.constData();
        EXPECT_TRUE(text.contains(" target=\"" + QByteArray(row.written) + '"')) << text.constData();
        EXPECT_EQ(textOfDocument(ParsedBudget(text).document()), text);
    }
}

/// Whatever text a user types or pastes, the file that contains it must be readable.
TEST(RoundTrip, ofATextThatLooksLikeAttributesKeepsIt) {
    for (const char* piece : {" a='b'", " a=\"b\"", "='", "=\"", " <a b='c'>", "&amp;", "]]>", "<!--", "<![CDATA["}) {
        BudgetBuilder budget;
        const QString text = QString::fromLatin1(piece).repeated(500);
        budget.transaction({.payTo = text, .xfor = text}).category(text, 1).set(text, 2);
        ParsedBudget again(textOfDocument(budget.document()));
        EXPECT_TRUE(again.read()) << piece << ": " << again.message().toStdString();
        EXPECT_EQ(again.records(), ParsedBudget::describe(budget.document())) << piece;
    }
}

/// A random text, with frequent characters that are special in XML and in UTF-8.
QString anyText() {
    const char32_t special[]{U'&',          U'<',
                             U'>',          U'"',
                             U'\'',         U']',
                             U' ',          U'\n',
                             U'\r',         U'\t',
                             U';',          U'#',
                             U'\0',         U'\x01',
                             U'\x7f',       U'\u00fc',
                             U'\u2028',     U'\u98df',
                             U'\uFEFF',     U'\uFFFE',
                             U'\U0001F600', char32_t(0xD83D)};
    const auto letter = rc::gen::weightedOneOf<char32_t>(
        {{3, rc::gen::inRange<char32_t>(U'a', U'z')},
         {2, rc::gen::elementOf(std::vector<char32_t>(std::begin(special), std::end(special)))},
         {1, rc::gen::inRange<char32_t>(0, 0x10FFFF)}});
    QString text(QLatin1String(""));
    for (const char32_t c : *rc::gen::container<std::vector<char32_t>>(letter)) {
        // Lone surrogates are drawn too, because a keyboard driver can deliver them.
        if (c < 0x10000)
            text += QChar(static_cast<char16_t>(c));
        else
            text += QChar::fromUcs4(c);
    }
    return text;
}

quint32 anyID() {
    return *rc::gen::weightedOneOf<quint32>({{3, rc::gen::inRange<quint32>(0, 9)}, {1, rc::gen::arbitrary<quint32>()}});
}

double anyAmount() {
    return *rc::gen::weightedOneOf<double>(
        {{3, rc::gen::map(rc::gen::inRange(-1'000'000, 1'000'000), [](int cents) { return cents / 100.0; })},
         {1, rc::gen::arbitrary<double>()}});
}

void fill(BudgetBuilder& budget) {
    budget.lastID(anyID()).currentSet(anyID());
    // Only the first of several records with the same ID is read back.
    for (quint32 id = anyID(), count = *rc::gen::inRange<quint32>(0, 4); count > 0; --count)
        budget.set(anyText(), id++);
    for (quint32 id = anyID(), count = *rc::gen::inRange<quint32>(0, 4); count > 0; --count)
        budget.category(anyText(), id++, *rc::gen::inRange<qint64>(-1, 9), anyAmount());
    for (int count = *rc::gen::inRange(0, 6); count > 0; --count) {
        BudgetBuilder::Entry entry;
        if (*rc::gen::inRange(0, 5) > 0)
            entry.date = day(*rc::gen::inRange<qint64>(0, 12000), *rc::gen::inRange(1, 13), *rc::gen::inRange(1, 32));
        entry.amount = anyAmount();
        entry.payTo = anyText();
        entry.xfor = anyText();
        entry.categoryID = anyID();
        entry.setID = anyID();
        entry.taxFlag = *rc::gen::arbitrary<bool>();
        entry.userFlag = *rc::gen::arbitrary<bool>();
        budget.transaction(entry);
    }
}

RC_GTEST_PROP(RoundTrip, ofAnyBudgetGivesTheSameText, ()) {
    BudgetBuilder budget;
    fill(budget);
    const QByteArray text = textOfDocument(budget.document());
    ParsedBudget again(text);
    RC_ASSERT(again.read());
    RC_ASSERT(textOfDocument(again.document()) == text);
}

RC_GTEST_PROP(RoundTrip, ofAnyTextGivesTheTextOfTheRecord, ()) {
    BudgetBuilder budget;
    budget.transaction({.payTo = anyText(), .xfor = anyText()});
    const auto& written = budget.transactionAt(0);
    ParsedBudget again(textOfDocument(budget.document()));
    const auto& read = again.document().transactions().at(0);
    RC_ASSERT(read->payTo() == written->payTo());
    RC_ASSERT(read->xfor() == written->xfor());
}

} // namespace
