#include "ProgramFixture.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr const char* kReportedBudget = R"(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="27" />
<TransactionSet id="27">Checking</TransactionSet><TransactionSet id="28">Savings</TransactionSet><TransactionSet id="29">Empty</TransactionSet>
<Transaction categoryID="12" flag="0" tax_flag="1" transaction_set_id="27"><Data date="2014/03/07" amount="45.10" /><PayToFrom>Dr. Lee &amp; Sons</PayToFrom><For>Checkup</For></Transaction>
<Transaction categoryID="13" flag="0" tax_flag="0" transaction_set_id="27"><Data date="2014/02/01" amount="1234.50" /><PayToFrom>A market whose name is longer than its column</PayToFrom><For></For></Transaction>
<Transaction categoryID="13" flag="1" tax_flag="0" transaction_set_id="27"><Data date="2013/12/31" amount="9.00" /><PayToFrom>Baker</PayToFrom><For>rolls</For></Transaction>
<Transaction categoryID="13" flag="0" tax_flag="0" transaction_set_id="28"><Data date="2014/03/01" amount="50.00" /><PayToFrom>Deposit</PayToFrom><For></For></Transaction>
<Category id="13">Food<ExpenseEstimates frequency="Bi-Weekly" target="20.00" /></Category><Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category></CorvellaDocument>
)";

constexpr const char* kEmptyBudget = R"(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="27" /><TransactionSet id="27">Checking</TransactionSet></CorvellaDocument>
)";

/// Today is 8 March 2014.
class ReportProgram : public ProgramFixture {
protected:
    [[nodiscard]] Result report(const QString& kind, const QStringList& options = {}) const {
        return run(QStringList{"report", kind, "--data", mFile, "--today", "2014/03/08"} + options);
    }

    /// The output of a command-line tool about a PDF file.
    [[nodiscard]] static QString ask(const QString& tool, const QStringList& arguments) {
        QProcess process;
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished()) << "poppler-utils are missing";
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    QString mFile = write("budget.corvella", kReportedBudget);
};

TEST_F(ReportProgram, WritesDatesInTheLocaleOfDates) {
    struct Row {
        const char* language;
        const char* dates;
        const char* all;
        const char* line;
    };
    for (const auto& [language, dates, all, line] :
         {Row{"de_DE.UTF-8", "", "", "Transaction Report for: 08.03.14  Total=€1.288,60"},
          Row{"de_DE.UTF-8", "C", "", "Transaction Report for: 3/8/14  Total=€1.288,60"},
          Row{"de_DE.UTF-8", "POSIX", "", "Transaction Report for: 3/8/14  Total=€1.288,60"},
          Row{"de_DE.UTF-8", "C.UTF-8", "", "Transaction Report for: 3/8/14  Total=€1.288,60"},
          Row{"ar_EG.UTF-8", "C", "", "Transaction Report for: 3/8/14  "},
          Row{"C.UTF-8", "en_GB.UTF-8", "", "Transaction Report for: 08/03/2014  Total=$1,288.60"},
          Row{"de_DE.UTF-8", "en_GB.UTF-8", "C.UTF-8", "Transaction Report for: 3/8/14  Total=$1,288.60"}}) {
        mEnvironment.insert("LANG", language);
        mEnvironment.insert("LC_TIME", dates);
        mEnvironment.insert("LC_ALL", all);
        const QString output = report("transactions").output;
        EXPECT_TRUE(output.startsWith(QString::fromUtf8(line))) << language << ' ' << dates << '\n'
                                                                << qPrintable(output);
    }
}

TEST_F(ReportProgram, WritesEachReportAsText) {
    struct Row {
        const char* kind;
        QStringList options;
        const char* text;
    };
    const QList<Row> rows{
        {"transactions",
         {},
         "Transaction Report for: 3/8/14  Total=$1,288.60\n"
         "#\tDate\tAmount\tPaid To\tFor\tCategory\n"
         "1\t3/7/14\t$45.10\tDr. Lee & Sons\tCheckup\tMedical\n"
         "2\t2/1/14\t$1,234.50\tA market whose name is longer than its column\t\tFood\n"
         "3\t12/31/13\t$9.00\tBaker\trolls\tFood\n"},
        {"averages",
         {"--from", "2014/01/01", "--to", "2014/02/28"},
         "Category Averages Report for: 1/1/14 to 2/28/14\n"
         "Category\tSpending Pattern\t# of Trans\tTotal\tMonthly\tBi-Weekly\tWeekly\n"
         "Food\t2 Months\t1\t$1,234.50\t$617.25\t$284.88\t$142.44\n"
         "Medical\tMonthly\t0\t$0.00\t$0.00\t$0.00\t$0.00\n"},
        {"plan",
         {"--from", "2014/01/01", "--to", "2014/02/28"},
         "Plan vs Actual Report for: 1/1/14 to 2/28/14\n"
         "Category\tExpense Frequency\tTarget Per Frequency\tAverage Per Frequency\tDifference\n"
         "Food\tWeekly\t$20.00\t$308.63\t-$288.63\n"
         "Medical\tMonthly\t$50.00\t$0.00\t$50.00\n"},
        {"percent",
         {"--range", "3"},
         "Percent Report for: 1/1/14 to 3/8/14\n"
         "Category\tTotal Spent\tPercent of total spent\n"
         "Food\t$1,234.50\t96.48%\n"
         "Medical\t$45.10\t3.52%\n"},
        {"tax",
         {},
         "Tax Report for: 12/31/13 to 3/7/14\n"
         "Category\tNumber of Transactions\tAmount of Tax\n"
         "Food\t0\t$0.00\n"
         "Medical\t1\t$45.10\n"},
        {"summary",
         {"--period", "month"},
         "Summary Report for: 3/8/14\n"
         "Category\tMarch 2014\tApril 2014\tMay 2014\tJune 2014\tTotal\n"
         "Food\t$0.00\t$0.00\t$0.00\t$0.00\t$0.00\n"
         "Medical\t$45.10\t$0.00\t$0.00\t$0.00\t$45.10\n"
         "\n"
         "Total\t$45.10\t$0.00\t$0.00\t$0.00\n"},
    };
    const QStringList before = everything();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.kind);
        const Result result = report(row.kind, row.options);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, row.text);
        EXPECT_EQ(result.errors, "");
    }
    EXPECT_EQ(everything(), before);
}

TEST_F(ReportProgram, WritesEachReportForOtherProgramsAlikeInEveryLocale) {
    struct Row {
        const char* kind;
        QStringList options;
        const char* csv;
        const char* json;
    };
    const QList<Row> rows{
        {"transactions",
         {},
         "#,Date,Amount,Paid To,For,Category\r\n"
         "1,2014-03-07,45.1,Dr. Lee & Sons,Checkup,Medical\r\n"
         "2,2014-02-01,1234.5,A market whose name is longer than its column,,Food\r\n"
         "3,2013-12-31,9,Baker,rolls,Food\r\n",
         R"({"#":3,"Date":"2013-12-31","Amount":9,"Paid To":"Baker","For":"rolls","Category":"Food"})"},
        {"averages",
         {"--from", "2014/01/01", "--to", "2014/02/28"},
         "Category,Spending Pattern,# of Trans,Total,Monthly,Bi-Weekly,Weekly\r\n"
         "Food,2 Months,1,1234.5,617.25,284.88,142.44\r\n"
         "Medical,Monthly,0,0,0,0,0\r\n",
         R"({"Category":"Medical","Spending Pattern":"Monthly","# of Trans":0,"Total":0,"Monthly":0,)"},
        {"plan",
         {"--from", "2014/01/01", "--to", "2014/02/28"},
         "Category,Expense Frequency,Target Per Frequency,Average Per Frequency,Difference\r\n"
         "Food,Weekly,20,308.63,-288.63\r\n"
         "Medical,Monthly,50,0,50\r\n",
         R"({"Category":"Food","Expense Frequency":"Weekly","Target Per Frequency":20,)"},
        {"percent",
         {"--range", "3"},
         "Category,Total Spent,Percent of total spent\r\nFood,1234.5,96.48\r\nMedical,45.1,3.52\r\n",
         R"({"Category":"Food","Total Spent":1234.5,"Percent of total spent":96.48})"},
        {"tax",
         {},
         "Category,Number of Transactions,Amount of Tax\r\nFood,0,0\r\nMedical,1,45.1\r\n",
         R"({"Category":"Medical","Number of Transactions":1,"Amount of Tax":45.1})"},
        {"summary",
         {"--period", "month"},
         "Category,March 2014,April 2014,May 2014,June 2014,Total\r\n"
         "Food,0,0,0,0,0\r\nMedical,45.1,0,0,0,45.1\r\nTotal,45.1,0,0,0,\r\n",
         R"({"Category":"Total","March 2014":45.1,"April 2014":0,"May 2014":0,"June 2014":0,"Total":null})"},
    };
    for (const char* const amounts : {"C.UTF-8", "de_DE.UTF-8", "ar_EG.UTF-8"}) {
        mEnvironment.insert("LANG", amounts);
        mEnvironment.insert("LC_TIME", "en_US.UTF-8");
        mEnvironment.insert("LC_ALL", "");
        for (const Row& row : rows) {
            SCOPED_TRACE(std::string(row.kind) + ' ' + amounts);
            const Result csv = report(row.kind, row.options + QStringList{"--format", "csv"});
            EXPECT_EQ(csv.status, 0) << csv.errors.toStdString();
            EXPECT_EQ(csv.output, row.csv);
            const Result json = report(row.kind, row.options + QStringList{"--format", "json"});
            EXPECT_TRUE(json.output.contains(row.json)) << json.output.toStdString();
            EXPECT_EQ(QJsonDocument::fromJson(json.output.toUtf8()).array().size(), csv.output.count('\n') - 1);
        }
    }
}

TEST_F(ReportProgram, WritesAReportForOtherProgramsToAFile) {
    const QString path = mHome.filePath("report.csv");
    EXPECT_EQ(report("tax", {"--format", "csv", "--output", path}).output, "");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("Category,Number of Transactions,"));
    EXPECT_EQ(report("tax", {"--format", "csv", "--output", mFile}).status, 1) << "the data file";
    for (const QStringList& options :
         QList<QStringList>{{"--format", "pdf"}, {"--format", "csv", "--output", path, "--paper", "a4"}})
        EXPECT_EQ(report("tax", options).status, 2) << options.join(' ').toStdString();
}

TEST_F(ReportProgram, TakesTheDaysTheSetAndThePeriodThatAreAskedFor) {
    EXPECT_EQ(report("transactions", {"--range", "4"}).output.count('\n'), 2 + 1);
    EXPECT_EQ(report("transactions", {"--from", "2013/12/31", "--to", "2014/02/01"}).output.count('\n'), 2 + 2);
    EXPECT_TRUE(report("transactions", {"--set", "Savings"}).output.contains("1\t3/1/14\t$50.00\tDeposit\t\tFood\n"));
    EXPECT_TRUE(report("summary").output.contains("Category\tSunday\tMonday\t"));
    EXPECT_TRUE(report("summary", {"--period", "week"}).output.contains("Category\t3/2 - 3/8\t"));
    EXPECT_TRUE(report("summary", {"--period", "two-weeks"}).output.contains("Category\t2/23 - 3/8\t"));
}

/// The columns are aligned as in the window, wherever the first one begins: 8 March 2014 was a Saturday.
TEST_F(ReportProgram, BeginsTheSummaryWithThePeriodThatHoldsTheDay) {
    struct Row {
        QStringList options;
        const char* columns;
    };
    const QList<Row> rows{
        {{"--from", "2014-01-15", "--period", "month"}, "Category\tJanuary 2014\tFebruary 2014\t"},
        {{"--from", "2014", "--period", "month"}, "Category\tJanuary 2014\tFebruary 2014\t"},
        {{"--from", "2014-01-15", "--period", "week"}, "Category\t1/12 - 1/18\t1/19 - 1/25\t"},
        {{"--from", "today", "--period", "week"}, "Category\t3/2 - 3/8\t"},
        // Two-week periods are aligned to the one that begins on 23 February.
        {{"--from", "2014-02-22", "--period", "two-weeks"}, "Category\t2/9 - 2/22\t2/23 - 3/8\t"},
        {{"--from", "2014-03-23", "--period", "two-weeks"}, "Category\t3/23 - 4/5\t"},
        {{"--from", "2014-01-01"}, "Category\tSunday\tMonday\t"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.options.join(' ').toStdString());
        const Result result = report("summary", row.options);
        EXPECT_EQ(result.status, 0) << result.errors.toStdString();
        EXPECT_TRUE(result.output.contains(row.columns)) << result.output.toStdString();
    }
    EXPECT_TRUE(report("summary", {"--from", "2014-02-01"}).output.contains("$1,234.50"));
    EXPECT_FALSE(report("summary", {"--from", "2014-02-02"}).output.contains("$1,234.50"));
}

TEST_F(ReportProgram, TakesOneEndOfTheRangeAlone) {
    EXPECT_TRUE(report("tax", {"--from", "2014"}).output.startsWith("Tax Report for: 1/1/14 to 3/7/14\n"));
    EXPECT_TRUE(report("tax", {"--to", "2014-02"}).output.startsWith("Tax Report for: 12/31/13 to 2/28/14\n"));
    EXPECT_TRUE(report("tax", {"--from", "2020"}).output.startsWith("Tax Report for: 1/1/20 to 1/1/20\n"));
    EXPECT_TRUE(report("tax", {"--range", "2014-02"}).output.startsWith("Tax Report for: 2/1/14 to 2/28/14\n"));
}

TEST_F(ReportProgram, WritesAPDFAndNothingElse) {
    const QStringList before = everything();
    const QString path = mHome.filePath("report.pdf");
    const Result result = report("transactions", {"--output", path, "--paper", "a4"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
    const QString facts = ask("pdfinfo", {path});
    EXPECT_TRUE(facts.contains("Transaction Report 2014-03-08\n")) << facts.toStdString();
    EXPECT_TRUE(facts.contains("595 x 842 pts")) << facts.toStdString();
    const QString text = ask("pdftotext", {"-layout", path, "-"});
    EXPECT_TRUE(text.contains("Transaction Report for: 3/8/14 Total=$1,288.60")) << text.toStdString();
    EXPECT_TRUE(text.contains("Page 1\n"));
    EXPECT_TRUE(text.contains("Dr. Lee & Sons"));
    EXPECT_TRUE(text.contains("A market whose nam…")) << text.toStdString();
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(everything(), before);
}

/// Explicit days on the command line do not change what counts as today.
TEST_F(ReportProgram, NamesWhatItWritesAfterTheDayThatIsTodayWhateverDaysAreWrittenOut) {
    const QString path = mHome.filePath("report.pdf");
    const QStringList days{"--from", "2014-01-01", "--to", "2014-02-28"};
    EXPECT_TRUE(report("transactions", days).output.startsWith("Transaction Report for: 3/8/14  "));
    EXPECT_EQ(report("tax", days + QStringList{"--output", path}).status, 0);
    EXPECT_TRUE(ask("pdfinfo", {path}).contains("Tax Report 2014-03-08\n"));
    EXPECT_TRUE(report("tax", {"--from", "2014-01-01", "--to", "today"})
                    .output.startsWith("Tax Report for: 1/1/14 to 3/8/14\n"));
}

TEST_F(ReportProgram, ChoosesThePaper) {
    const QString path = mHome.filePath("report.pdf");
    struct Row {
        const char* kind;
        QStringList options;
        const char* size;
    };
    // The program runs in US English here.
    const QList<Row> rows{{"tax", {}, "612 x 792 pts"},
                          {"tax", {"--paper", "letter"}, "612 x 792 pts"},
                          {"tax", {"--paper", "a4"}, "595 x 842 pts"},
                          {"plan", {"--paper", "a4"}, "842 x 595 pts"}};
    for (const Row& row : rows) {
        EXPECT_EQ(report(row.kind, QStringList{"--output", path} + row.options).status, 0);
        EXPECT_TRUE(ask("pdfinfo", {path}).contains(row.size)) << row.kind << ' ' << row.size;
    }
}

TEST_F(ReportProgram, SaysInOneLineWhatFailed) {
    const QString empty = write("empty.corvella", kEmptyBudget);
    struct Row {
        QStringList arguments;
        int status;
        const char* reason;
    };
    const QList<Row> rows{
        {{"transactions", "--set", "Empty"}, 1, "There are no transactions to print."},
        {{"summary", "--set", "Empty"}, 1, "There are no transactions to print."},
        {{"tax", "--set", "Empty"}, 1, "There is nothing to print."},
        {{"averages", "--data", empty}, 1, "There is nothing to print."},
        {{"transactions", "--from", "2010/01/01", "--to", "2010/12/31"}, 1, "There are no transactions to print."},
        {{"tax", "--set", "Cash"}, 1, "no transaction set \"Cash\""},
        {{"tax", "--data", mHome.filePath("missing")}, 1, "does not exist"},
        {{"tax", "--output", mHome.filePath("missing/out.pdf")}, 1, "could not be written"},
        {{}, 2, "report takes transactions,"},
        {{"taxes"}, 2, "report takes transactions,"},
        {{"tax", "plan"}, 2, "no argument \"plan\""},
        {{"summary", "--period", "year"}, 2, "--period takes"},
        {{"tax", "--output", "x.pdf", "--paper", "a3"}, 2, "--paper takes"},
        {{"tax", "--range", "8"}, 2, "0 to 7"},
        {{"summary", "--range", "3"}, 2, "the summary takes no --range"},
        {{"summary", "--to", "2014/01/01"}, 2, "the summary takes no --to"},
        {{"summary", "--from", "2014/01/01", "--to", "2014/01/02"}, 2, "the summary takes no --to"},
        {{"tax", "--period", "week"}, 2, "--period is an option of the summary alone"},
        {{"summary", "--paper", "a4"}, 2, "--paper is an option of PDF files alone"},
        {{"summary", "--period", "week", "--period", "day"}, 2, "--period is given twice"},
        {{"tax", "--range", "2014", "--to", "2014"}, 2, "either"},
        {{"tax", "--from", "2014/01/02", "--to", "2014/01/01"}, 2, "--from lies after --to"},
        {{"tax", "--today", "now"}, 2, "--today takes a day"},
        {{"tax", "--sort", "date"}, 2, "sort"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.arguments.join(' ').toStdString());
        QStringList arguments = row.arguments;
        if (!arguments.contains("--data"))
            arguments << "--data" << mFile;
        const Result result = run(QStringList{"report"} + arguments);
        EXPECT_EQ(result.status, row.status);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.startsWith("corvella: ")) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.section('\n', 0, 0).contains(row.reason)) << result.errors.toStdString();
        EXPECT_EQ(result.errors.contains("Usage:"), row.status == 2);
    }
}

} // namespace
