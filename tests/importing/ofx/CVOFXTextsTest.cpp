#include "importing/ofx/CVOFXTexts.h"

#include "OFXFixtures.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

QString textsOf(const QByteArray& more, const QByteArray& type = "OTHER") {
    const CVStatement statement = CVReadOFX(OFXWithEntries(OFXEntry("-1.00", type, more)));
    return statement.lines.empty() ? statement.problem
                                   : statement.lines.front().payee + u'|' + statement.lines.front().purpose;
}

struct TextsRow {
    const char* more;
    const char* texts;
};

TEST(CVOFXTexts, TellWhoAndWhatFor) {
    const std::vector<TextsRow> rows{
        {"<NAME>Shop<MEMO>Bread", "Shop|Bread"},
        {"<MEMO>Bread", "Bread|"},
        {"<NAME>Shop<MEMO>Shop", "Shop|"},
        {"<NAME>Check<MEMO>Check to Miller", "Check|Check to Miller"},
        {"<NAME>Shop  7\n<MEMO>Bread\nand   butter\n<MEMO>Salt", "Shop 7|Bread and butter Salt"},
        {"<PAYEE><NAME>Miller<ADDR1>Lane 1<CITY>York<PHONE>555</PAYEE><MEMO>Rent", "Miller|Rent Lane 1 York"},
        {"<PAYEE><NAME>Miller<ADDR1>Lane 1<MEMO>Rent", "Miller|Rent Lane 1"},
        {"<PAYEE>Miller<MEMO>Rent", "Miller|Rent"},
        {"<NAME>Card 12<PAYEE><NAME>Miller</PAYEE>", "Miller|Card 12"},
        {"<NAME>Shop<BANKACCTTO><BANKID>8<ACCTID>99</BANKACCTTO><MEMO>Bread", "Shop|Bread"},
        {"<NAME>Shop<BANKACCTTO><BANKID>8<ACCTID>99<MEMO>Bread", "Shop|Bread"},
        {"", "|OTHER"}};
    for (const auto& [more, texts] : rows)
        EXPECT_EQ(textsOf(more), QString::fromUtf8(texts)) << more;
}

TEST(CVOFXTexts, CompleteANameThatTheBankCut) {
    const std::vector<TextsRow> rows{
        {"<NAME>City Water Works, Departm<MEMO>City Water Works, Department of Bills",
         "City Water Works, Department of Bills|"},
        {"<NAME>Interest earned for period of 03<MEMO>Interest earned for period of 03/01",
         "Interest earned for period of 03/01|"},
        {"<NAME>City  Water   Works, Departments<MEMO>City Water Works, Departments of Bills",
         "City Water Works, Departments of Bills|"},
        {"<NAME>City Wat<EXTDNAME>City Water Works<MEMO>Bill 7", "City Water Works|Bill 7"},
        {"<NAME>City Wat<MEMO>City Bill", "City Wat|City Bill"}};
    for (const auto& [more, texts] : rows)
        EXPECT_EQ(textsOf(more), QString::fromUtf8(texts)) << more;
}

TEST(CVOFXTexts, SayTheNumberOfACheckOnce) {
    EXPECT_EQ(textsOf("<CHECKNUM>1025<NAME>Miller", "CHECK"), QStringLiteral("Miller|Check 1025"));
    EXPECT_EQ(textsOf("<CHECKNUM>1025", "CHECK"), QStringLiteral("|Check 1025"));
    EXPECT_EQ(textsOf("<CHECKNUM>0001025<NAME>Check 1025", "CHECK"), QStringLiteral("Check 1025|"));
    EXPECT_EQ(textsOf("<CHECKNUM>1025<NAME>Miller"), QStringLiteral("Miller|No. 1025"));
    EXPECT_EQ(textsOf("<FITID>x1025<CHECKNUM>1025<NAME>Miller"), QStringLiteral("Miller|"));
    EXPECT_EQ(textsOf("<CHECKNUM>0000<NAME>Miller"), QStringLiteral("Miller|"));
}

TEST(CVOFXTexts, KeepWhatIsNoMarkup) {
    const std::vector<TextsRow> rows{{"<NAME>A & B &amp; C", "A & B & C|"},
                                     {"<NAME>A&lt;B&gt;&nbsp;C &quot;D&quot;", "A<B> C \"D\"|"},
                                     {"<NAME>Caf&#233; &#xE9; &#0; &#xD800; &copy", "Café é &#0; &#xD800; &copy|"},
                                     {"<NAME>A &amp;amp; B", "A &amp; B|"},
                                     {"<NAME>A < B > C", "A < B > C|"},
                                     {"<NAME>A <b>c</b>", "A <b>c</b>|"},
                                     {"<NAME>A <3", "A <3|"}};
    for (const auto& [more, texts] : rows)
        EXPECT_EQ(textsOf(more), QString::fromUtf8(texts)) << more;
}

} // namespace
