#include "transfer/CVReadTransfer.h"

#include "kit/Day.h"
#include "kit/Printers.h"
#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kHeader = "Date,Amount,Category,Paid To,For,Tax,Flagged,Set\r\n";
const QByteArray kObject =
    R"({"date":"2026-11-22","amount":12.5,"category":"Food","paidTo":"Market","for":"","tax":true,"flagged":false,"set":"Cash"})";

/// The records of a budget, one a line.
QStringList recordsOf(const CVTransferredBudget& read) {
    if (!read.budget)
        return {read.problem};
    CVDocument& document = **read.budget;
    QStringList lines;
    for (const auto& set : document.transactionSets())
        lines << QStringLiteral("set %1").arg(set->transactionSetName());
    for (const auto& category : document.categories())
        lines << QStringLiteral("category %1").arg(category->categoryName());
    for (const auto& each : document.transactions()) {
        const auto set = document.findTransactionSetFromID(each->transactionSetID());
        const auto day = each->effectiveDate();
        lines << QStringList{day ? QString::fromLatin1(day->corvellaXMLRepresentation()) : QString(),
                             QString::number(each->amount(), 'g', 17),
                             each->categoryName(),
                             each->payTo(),
                             each->xfor(),
                             each->taxFlag() ? "X" : "",
                             each->userFlag() ? "X" : "",
                             each->transactionSetID() ? set->transactionSetName() : QString()}
                     .join('|');
    }
    return lines;
}

QByteArray withoutKey(const QByteArray& member) {
    QByteArray object = kObject;
    return object.replace(member, "");
}

QByteArray with(const QByteArray& before, const QByteArray& after) {
    QByteArray object = kObject;
    EXPECT_TRUE(object.contains(before)) << before.constData();
    return object.replace(before, after);
}

TEST(CVReadTransfer, MakesABudgetWithTheSetsAndCategoriesThatAreNamed) {
    const QStringList records{"set Cash",
                              "set Bank",
                              "category Auto",
                              "category Food",
                              "2026/11/22|12.5|Food|Market, old|say \"x\"|X||Cash",
                              "2026/11/20|-3|Auto|Fuel|||X|Bank",
                              "2026/11/19|4||||||",
                              "|5|Food||||X|Cash"};
    EXPECT_EQ(recordsOf(CVReadTransfer(kHeader + ",5,Food,,,,yes,Cash\r\n"
                                                 "2026-11-22,12.5,Food,\"Market, old\",\"say \"\"x\"\"\",yes,,Cash\r\n"
                                                 "2026-11-20,-3.00,Auto,Fuel,,,yes,Bank\r\n"
                                                 "2026-11-19,4,,,,,,\r\n")),
              records);
    EXPECT_EQ(
        recordsOf(CVReadTransfer(
            R"([{"date":null,"amount":5,"category":"Food","paidTo":"","for":"","tax":false,"flagged":true,"set":"Cash"},
{"date":"2026-11-22","amount":12.5,"category":"Food","paidTo":"Market, old","for":"say \"x\"","tax":true,"flagged":false,"set":"Cash"},
{"date":"2026-11-20","amount":-3.00,"category":"Auto","paidTo":"Fuel","for":"","tax":false,"flagged":true,"set":"Bank"},
{"date":"2026-11-19","amount":4,"category":"","paidTo":"","for":"","tax":false,"flagged":false,"set":""}])")),
        records);
}

TEST(CVReadTransfer, GivesABudgetThatIsReadyToUse) {
    const auto read = CVReadTransfer(kHeader + "2026-11-22,1,Food,,,,,Cash\n2026-11-24,2,,,,,,\n");
    ASSERT_TRUE(read.budget) << read.problem.toStdString();
    const CVDocument& document = **read.budget;
    EXPECT_EQ(document.currentTransactionSet(), document.transactionSets().front()->uniqueID());
    EXPECT_EQ(document.uniqueID(), 2U);
    EXPECT_EQ(document.earliestTransactionDate(), day(2026, 11, 22));
    EXPECT_EQ(document.latestTransactionDate(), day(2026, 11, 24));
    for (const auto& transaction : document.transactions())
        EXPECT_EQ(transaction->document(), &document);
}

TEST(CVReadTransfer, GivesNoTextThatIsNull) {
    for (const QByteArray& bytes : {kHeader + ",1,,,,,,\r\n", kHeader + ",1,,\"\",\"\",,,\r\n",
                                    "[" + with("Market", "") + "]", "[" + with("Food", "") + "]"}) {
        const auto read = CVReadTransfer(bytes);
        ASSERT_TRUE(read.budget) << read.problem.toStdString();
        const CVTransaction& transaction = *(*read.budget)->transactions().front();
        EXPECT_FALSE(transaction.payTo().isNull()) << bytes.constData();
        EXPECT_FALSE(transaction.xfor().isNull()) << bytes.constData();
    }
}

TEST(CVReadTransfer, RecognizesByContent) {
    struct Row {
        QByteArray bytes;
        bool is;
    };
    for (const Row& row : {Row{kHeader, true},
                           {kHeader.trimmed(), true},
                           {"\xEF\xBB\xBF" + kHeader, true},
                           {"\"Date\",\"Amount\",\"Category\",\"Paid To\",\"For\",\"Tax\",\"Flagged\",\"Set\"\n", true},
                           {"Date,Amount,Category,Paid To,For,Tax,Flagged\n", false},
                           {"Date,Amount,Category,Paid To,For,Tax,Flagged,Set,More\n", false},
                           {"Date;Amount;Category;Paid To;For;Tax;Flagged;Set\n", false},
                           {"date,amount,category,paid to,for,tax,flagged,set\n", false},
                           {"", false},
                           {"[]", true},
                           {" [\n]\n", true},
                           {"[" + kObject + "]", true},
                           {"\xEF\xBB\xBF[ {", true},
                           {"[1]", false},
                           {"[", false},
                           {"[]x", false},
                           {kObject, false},
                           {"<CorvellaDocument>", false}}) {
        EXPECT_EQ(CVIsTransfer(row.bytes), row.is) << row.bytes.constData();
        if (!row.is) {
            EXPECT_EQ(CVReadTransfer(row.bytes).problem, "The file has no transactions that Corvella has exported.");
        }
    }
}

TEST(CVReadTransfer, ReadsWhatASpreadsheetSavesAgain) {
    const QStringList records{"set Cash", "category Food", "2026/11/22|12.5|Food|Market|two\nlines|X||Cash"};
    for (const QByteArray& bytes :
         {kHeader + "2026-11-22,12.5,Food,Market,\"two\r\nlines\",yes,,Cash\r\n",
          QByteArray("Date,Amount,Category,Paid To,For,Tax,Flagged,Set\n"
                     "2026-11-22,12.50,Food,Market,\"two\nlines\",yes,,Cash"),
          QByteArray("\xEF\xBB\xBF\"Date\",\"Amount\",\"Category\",\"Paid To\",\"For\",\"Tax\",\"Flagged\",\"Set\"\r\n"
                     "\"2026-11-22\",1.25E+1,\"Food\",\"Market\",\"two\nlines\",\"yes\",\"\",\"Cash\"\r\n\r\n")})
        EXPECT_EQ(recordsOf(CVReadTransfer(bytes)), records) << bytes.constData();
}

TEST(CVReadTransfer, ReadsJSONThatAnotherProgramHasLaidOutAnew) {
    EXPECT_EQ(recordsOf(CVReadTransfer("\n[\r\n  {\n \"set\" : \"Cash\",\n \"tax\" : true, \"flagged\":false,\n"
                                       "\"amount\":\"Infinity\",\n\t\"category\":\"F\\u006fod }]\\\"\", \"for\":\"\", "
                                       "\"paidTo\":\"\\\\\", \"date\": \"2026-11-22\" }\n]\n")),
              (QStringList{"set Cash", "category Food }]\"", "2026/11/22|inf|Food }]\"|\\||X||Cash"}));
}

TEST(CVReadTransfer, NamesTheLineThatCannotBeRead) {
    struct Row {
        QByteArray line;
        const char* why;
    };
    for (const Row& row : {
             Row{"2026-11-22,1,Food,,,,", "it has 7 cells in place of 8"},
             {"2026-11-22,1,Food,a,b,c,,,Cash", "it has 9 cells in place of 8"},
             {"22.11.2026,1,,,,,,", "“22.11.2026” is no day of the form 2026-11-22"},
             {"2026-02-30,1,,,,,,", "“2026-02-30” is no day of the form 2026-11-22"},
             {"2026-11-22,,,,,,,", "“” is no amount"},
             {"2026-11-22,\"1,50\",,,,,,", "“1,50” is no amount"},
             {"2026-11-22,NaN,,,,,,", "“NaN” is no amount"},
             {"2026-11-22,1e999,,,,,,", "“1e999” is no amount"},
             {"2026-11-22,1,,,,Yes,,", "“Yes” is neither yes nor empty"},
             {"2026-11-22,1,,,,,x,", "“x” is neither yes nor empty"},
             {"2026-11-22,1,,a\"b,,,,", "a quotation mark is out of place"},
             {"2026-11-22,1,,\"a\"b,,,,", "a quotation mark is out of place"},
             {"2026-11-22,1,,\"a,,,,", "a quotation mark is out of place"},
             {"2026-11-22,1,,a\x01,,,,", "a text has a character that a budget cannot hold"},
             {QByteArray("2026-11-22,1,,a\0b,,,,", 22), "a text has a character that a budget cannot hold"},
             {"2026-11-22,1,,a\xFF,,,,", "it is no UTF-8 text"},
         }) {
        const QString problem = QStringLiteral("Line 5 cannot be read: %1.").arg(row.why);
        const auto read =
            CVReadTransfer(kHeader + "2026-11-22,1,,\"two\nlines\",,,,\r\n\r\n" + row.line + "\r\n,1,,,,,,\r\n");
        EXPECT_FALSE(read.budget);
        EXPECT_EQ(read.problem, problem) << row.line.constData();
    }
}

TEST(CVReadTransfer, NamesTheLineOfTheObjectThatCannotBeRead) {
    struct Row {
        QByteArray object;
        const char* why;
    };
    for (const Row& row : {
             Row{withoutKey(R"("paidTo":"Market",)"), "it has no “paidTo”"},
             {withoutKey(R"("date":"2026-11-22",)"), "it has no “date”"},
             {with(R"("tax")", R"("note":"","tax")"), "“note” is unknown"},
             {with(R"("2026-11-22")", R"("2026-11-31")"), "“2026-11-31” is no day of the form 2026-11-22"},
             {with(R"("2026-11-22")", R"("")"), "“” is no day of the form 2026-11-22"},
             {with(R"("2026-11-22")", "20261122"), "“date” has a value of another kind"},
             {with("12.5", R"("12,5")"), "“12,5” is no amount"},
             {with("12.5", "true"), "“amount” has a value of another kind"},
             {with("12.5", "1e999"), "it is no JSON of transactions"},
             {with("true", R"("yes")"), "“tax” has a value of another kind"},
             {with(R"("Food")", "null"), "“category” has a value of another kind"},
             {with(R"("Food")", R"({"name":"Food"})"), "it is no JSON of transactions"},
             {with(R"("Food")", R"(["Food"])"), "“category” has a value of another kind"},
             {with("Food", R"(F\u0000d)"), "a text has a character that a budget cannot hold"},
             {with("Food", R"(F\ud83dd)"), "a text has a character that a budget cannot hold"},
             {with("Food", "F\xFF"), "it is no UTF-8 text"},
             {with(":12.5", "12.5"), "it is no JSON of transactions"},
             {"1", "it is no JSON of transactions"},
             {kObject + kObject, "it is no JSON of transactions"},
             {kObject.chopped(1), "it is no JSON of transactions"},
         }) {
        const auto read = CVReadTransfer("[\n" + kObject + ",\n" + row.object + ",\n" + kObject + "\n]\n");
        EXPECT_FALSE(read.budget);
        EXPECT_EQ(read.problem, QStringLiteral("Line 3 cannot be read: %1.").arg(row.why)) << row.object.constData();
    }
}

TEST(CVReadTransfer, TellsThatAnArrayBreaksOff) {
    for (const char* end : {"", ",", ",\n", "\n", "]]", "] x", ",]", ",{"}) {
        const auto read = CVReadTransfer("[" + kObject + end);
        EXPECT_FALSE(read.budget);
        EXPECT_TRUE(read.problem.endsWith(" cannot be read: it is no JSON of transactions."))
            << end << ": " << read.problem.toStdString();
    }
}

TEST(CVReadTransfer, QuotesALongCellShortly) {
    const auto read = CVReadTransfer(kHeader + QByteArray(100'000, 'x') + ",1,,,,,,\r\n");
    EXPECT_EQ(read.problem, "Line 2 cannot be read: “" + QString(40, 'x') + "…” is no day of the form 2026-11-22.");
}

TEST(CVReadTransfer, CanBeStopped) {
    QByteArray csv = kHeader;
    QByteArray json = "[";
    for (int i = 0; i < 10'000; ++i) {
        csv += "2026-11-22,1,,,,,,\r\n";
        json += kObject + ",";
    }
    json.back() = ']';
    for (const QByteArray& bytes : {csv, json}) {
        int asked = 0;
        const auto read = CVReadTransfer(bytes, [&asked] { return ++asked == 2; });
        EXPECT_EQ(asked, 2);
        EXPECT_FALSE(read.budget);
        EXPECT_EQ(read.problem, "");
        EXPECT_TRUE(CVReadTransfer(bytes, [] { return false; }).budget);
    }
}

} // namespace
