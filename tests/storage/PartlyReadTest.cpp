#include "kit/RandomBudget.h"
#include "storage/CVDocumentXML.h"
#include "storage/ParsedBudget.h"
#include "storage/SampleFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

CVPartlyRead partlyOf(const QByteArray& bytes) {
    ParsedBudget budget(bytes);
    EXPECT_TRUE(budget.read()) << budget.message().toStdString();
    return budget.parser().partlyRead();
}

QByteArray withData(const QByteArray& data) {
    return inRoot("<Transaction categoryID=\"1\"><Data " + data + "/></Transaction>");
}

struct PartRow {
    /// What stands in the root, on the second line of the file.
    const char* elements;
    /// What is said about it; empty where all of it is understood.
    const char* line;
};

TEST(PartlyRead, namesEachValueOfWhichOnlyAPartWasUnderstood) {
    for (const auto& [elements, line] : {
             PartRow{R"(<Transaction><Data date="2020-01-02"/></Transaction>)",
                     "Line 2: date=\"2020-01-02\" was not understood as a whole."},
             {R"(<Transaction><Data date="2014/02/29"/></Transaction>)",
              "Line 2: date=\"2014/02/29\" was not understood as a whole."},
             {R"(<Transaction><Data date="2014/03/07 "/></Transaction>)",
              "Line 2: date=\"2014/03/07\" was not understood as a whole."},
             {R"(<Transaction><Data amount="12,50"/></Transaction>)",
              "Line 2: amount=\"12,50\" was not understood as a whole."},
             {R"(<Transaction><Data amount="12.345"/></Transaction>)",
              "Line 2: amount=\"12.345\" was not understood as a whole."},
             {R"(<Transaction><Data amount="nan"/></Transaction>)",
              "Line 2: amount=\"nan\" was not understood as a whole."},
             {R"(<Transaction><Data amount="1e400"/></Transaction>)",
              "Line 2: amount=\"1e400\" was not understood as a whole."},
             {R"(<Transaction><Data amount="$5"/></Transaction>)",
              "Line 2: amount=\"$5\" was not understood as a whole."},
             {R"(<Transaction flag="true"/>)", "Line 2: flag=\"true\" was not understood as a whole."},
             {R"(<Transaction tax_flag="1x"/>)", "Line 2: tax_flag=\"1x\" was not understood as a whole."},
             {R"(<Transaction categoryID="-5"/>)", "Line 2: categoryID=\"-5\" was not understood as a whole."},
             {R"(<Transaction transaction_set_id="4294967296"/>)",
              "Line 2: transaction_set_id=\"4294967296\" was not understood as a whole."},
             {R"(<Transaction colour="red"/>)", "Line 2: colour=\"red\" is unknown."},
             {R"(<Transaction><Note>x</Note></Transaction>)", "Line 2: <Note> is unknown."},
             {R"(<Transaction><Category id="1"/></Transaction>)", "Line 2: <Category> is unknown."},
             {R"(<Transaction><Data time="12"/></Transaction>)", "Line 2: time=\"12\" is unknown."},
             {R"(<Transaction><For lang="de">x</For></Transaction>)", "Line 2: lang=\"de\" is unknown."},
             {R"(<Transaction><Data amount="1"/><Data amount="2"/></Transaction>)",
              "Line 2: another “Data” replaces what stood before it."},
             {R"(<Transaction><For>a</For><For>b</For></Transaction>)",
              "Line 2: another “For” replaces what stood before it."},
             {R"(<Transaction><PayToFrom>a<For>b</For></PayToFrom></Transaction>)",
              "Line 2: the text “a” came into another field."},
             {R"(<Transaction>lost</Transaction>)", "Line 2: the text “lost” belongs to no field."},
             {R"(<Transaction><For>a&#13;b</For></Transaction>)",
              "Line 2: a character of the text “a b” cannot be saved."},
             {R"(<Category id="1">a<ExpenseEstimates frequency="monthly"/></Category>)",
              "Line 2: frequency=\"monthly\" was not understood as a whole."},
             {R"(<Category id="1">a<ExpenseEstimates freqA="Monthly" freqB="Weekly"/></Category>)",
              "Line 2: another “freqB” replaces what stood before it."},
             {R"(<Category id="1">a<ExpenseEstimates target="1.005"/></Category>)",
              "Line 2: target=\"1.005\" was not understood as a whole."},
             {R"(<Category id="1">a<ExpenseEstimates target="1"/>b</Category>)",
              "Line 2: the text “b” belongs to no field."},
             {R"(<Category id="1" parent="2">a</Category>)", "Line 2: parent=\"2\" is unknown."},
             {R"(<Category id="5">a</Category><Category id="5">b</Category>)",
              "Line 2: <Category id=\"5\"> is left out, because an earlier one has this number."},
             {R"(<TransactionSet id="5">a</TransactionSet><TransactionSet id="5">b</TransactionSet>)",
              "Line 2: <TransactionSet id=\"5\"> is left out, because an earlier one has this number."},
             {R"(<TransactionSet id="5" colour="red">a</TransactionSet>)", "Line 2: colour=\"red\" is unknown."},
             {R"(<Account/>)", "Line 2: <Account> is unknown."},
             {R"(text)", "Line 2: the text “text” belongs to no field."},
             {"<!-- a\nb -->", "The comment “a b” is left out."},
             {R"(<?print me?>)", "Line 2: the processing instruction “print” is left out."},
         }) {
        const CVPartlyRead partly = partlyOf(inRoot(elements));
        EXPECT_EQ(partly.count, 1) << elements << '\n' << partly.lines.join('\n').toStdString();
        EXPECT_EQ(partly.lines.value(0), line) << elements;
    }
}

TEST(PartlyRead, countsNothingThatIsWrittenAgainWithTheSameMeaning) {
    for (const char* elements :
         {R"(<Transaction/>)", R"(<Transaction categoryID="" flag="" tax_flag=""/>)",
          R"(<Transaction categoryID="007" transaction_set_id=" 4294967295 "/>)",
          R"x(<Transaction><Data date="(null)" amount="1e3"/></Transaction>)x",
          R"(<Transaction><Data date="2014/3/7" amount="+12.5"/></Transaction>)",
          R"(<Transaction><Data date="" amount=" 12.500 "/></Transaction>)",
          R"(<Transaction><Data amount="-.5"/></Transaction>)", R"(<Transaction><Data amount="-0"/></Transaction>)",
          R"(<Transaction><PayToFrom><![CDATA[a & b]]></PayToFrom><For>&lt;&#252;</For></Transaction>)",
          "<Transaction>\r\n\t<For>a\r\nb</For>\n</Transaction>",
          R"(<Category id="1">a<ExpenseEstimates freqX="Semi-Monthly" target="50"/></Category>)",
          R"x(<Category id="1">a<ExpenseEstimates frequency="(null)"/></Category>)x",
          R"(<Category id="1"/><TransactionSet id="1"/>)"}) {
        const CVPartlyRead partly = partlyOf(inRoot(elements));
        EXPECT_EQ(partly.count, 0) << elements << '\n' << partly.lines.join('\n').toStdString();
    }
    EXPECT_EQ(partlyOf(sampleFile()).count, 0);
    const QByteArray utf16 =
        QByteArray("\xff\xfe") +
        QByteArray(reinterpret_cast<const char*>(QString::fromUtf8(sampleFile()).replace("UTF-8", "UTF-16").utf16()),
                   2 * QString::fromUtf8(sampleFile()).replace("UTF-8", "UTF-16").size());
    EXPECT_EQ(partlyOf(utf16).count, 0);
}

TEST(PartlyRead, looksAtTheRootAndTheCountersToo) {
    EXPECT_EQ(partlyOf("<CorvellaDocument os=\"x\" app=\"y\" app_version=\"z\" xmlns=\"urn:1\" other=\"o\">"
                       "<MiscInfo id=\"12x\" next=\"1\"/><MiscInfo id=\"1\"/></CorvellaDocument>")
                  .lines,
              QStringList({"Line 1: xmlns=\"urn:1\" is unknown.", "Line 1: other=\"o\" is unknown.",
                           "Line 1: id=\"12x\" was not understood as a whole.", "Line 1: next=\"1\" is unknown.",
                           "Line 1: another “MiscInfo” replaces what stood before it."}));
    EXPECT_EQ(partlyOf("<!DOCTYPE CorvellaDocument>\n" + inRoot("").mid(inRoot("").indexOf('\n') + 1)).lines.value(0),
              "Line 1: the document type “CorvellaDocument” is left out.");
}

TEST(PartlyRead, noticesWhatStandsBehindAZeroByteAndWhatIsNoXml) {
    const QByteArray file = inRoot("<Transaction><For>a</For></Transaction>");
    EXPECT_EQ(partlyOf(file + QByteArray("\0<!-- x -->", 11)).lines,
              QStringList({"A zero byte ended the reading; what stands behind it is left out.",
                           "The comment “x” is left out."}));
    ParsedBudget budget(inRoot("<Transaction x:y=\"1\"/>"));
    EXPECT_GE(budget.parser().partlyRead().count, 1);
}

TEST(PartlyRead, givesTheNumberOfAllAndTheFirstLines) {
    QByteArray elements;
    for (int i = 1; i <= 1000; ++i)
        elements += "<Transaction><Data amount=\"" + QByteArray::number(i) + ",5\"/></Transaction>\n";
    const CVPartlyRead partly = partlyOf(inRoot(elements));
    EXPECT_EQ(partly.count, 1000);
    ASSERT_EQ(partly.lines.size(), 5);
    EXPECT_TRUE(partly.lines[4].startsWith("Line 6: amount=\"5,5\" ")) << partly.lines[4].toStdString();
}

TEST(PartlyRead, showsWhatStoodThereInOneShortLine) {
    const QString line = partlyOf(withData("amount=\"%2 " + QByteArray(500, 'x') + "\"")).lines.value(0);
    EXPECT_EQ(line, "Line 2: amount=\"%2 " + QString(37, 'x') + "…\" was not understood as a whole.");
    const QByteArray letters = QByteArray(39, 'x') + "\xf0\x9f\x98\x80\xf0\x9f\x98\x80";
    EXPECT_EQ(partlyOf(withData("amount=\"" + letters + "\"")).lines.value(0),
              "Line 2: amount=\"" + QString(39, 'x') + "…\" was not understood as a whole.")
        << "no half of a letter is shown";
    EXPECT_EQ(partlyOf(withData("amount=\"a&#10;&#9;b\xe2\x80\xae\xf0\x9f\x98\x80\"")).lines.value(0),
              QString::fromUtf8("Line 2: amount=\"a b \xf0\x9f\x98\x80\" was not understood as a whole."));
}

TEST(PartlyRead, countsNothingThatThisProgramWrites) {
    for (quint32 seed = 1; seed <= 300; ++seed) {
        RandomBudget random(seed);
        for (int change = 0; change < 20; ++change)
            random.change();
        // Two categories or sets with one ID are written by nobody; the reader drops the second.
        ParsedBudget first(CVDocumentXMLRepresentation(random.document()).joined());
        const CVPartlyRead partly = partlyOf(CVDocumentXMLRepresentation(first.document()).joined());
        ASSERT_EQ(partly.count, 0) << "seed " << seed << ": " << partly.lines.join('\n').toStdString();
    }
}

TEST(PartlyRead, countsNoAmountThatThisProgramWrites) {
    std::mt19937_64 engine(16);
    BudgetBuilder budget;
    for (const double amount : {0.0, -0.0, 0.005, -0.004, 1e15, 1e17, 1e22, 1e300, -1e300, 99999999999.995, 1e11,
                                123456789012345678.0, std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::lowest(), std::numeric_limits<double>::denorm_min()})
        budget.transaction({.amount = amount}).category("a", budget.document().getUniqueID(), 0, amount);
    for (int i = 0; i < 20'000; ++i) {
        const auto bits = engine();
        double amount = 0;
        std::memcpy(&amount, &bits, sizeof amount);
        if (std::isfinite(amount))
            budget.transaction({.amount = amount});
        budget.transaction({.amount = static_cast<double>(static_cast<qint64>(bits) >> (bits % 60)) / 100});
    }
    const CVPartlyRead partly = partlyOf(CVDocumentXMLRepresentation(budget.document()).joined());
    EXPECT_EQ(partly.count, 0) << partly.lines.join('\n').toStdString();
}

} // namespace
