#include "ProgramFixture.h"

namespace {

constexpr const char* kExportedBudget = R"(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="27" />
<TransactionSet id="27">Checking</TransactionSet><TransactionSet id="28">Savings</TransactionSet>
<Transaction categoryID="12" flag="0" tax_flag="1" transaction_set_id="27"><Data date="2014/03/07" amount="45.10" /><PayToFrom>Dr. Lee &amp; Sons</PayToFrom><For>Checkup</For></Transaction>
<Transaction categoryID="13" flag="0" tax_flag="0" transaction_set_id="27"><Data date="2014/02/01" amount="1234.50" /><PayToFrom>Market</PayToFrom><For></For></Transaction>
<Transaction categoryID="13" flag="1" tax_flag="0" transaction_set_id="27"><Data date="2013/12/31" amount="9.00" /><PayToFrom>Baker</PayToFrom><For>rolls</For></Transaction>
<Transaction categoryID="13" flag="0" tax_flag="0" transaction_set_id="28"><Data date="2014/03/01" amount="50.00" /><PayToFrom>Deposit</PayToFrom><For></For></Transaction>
<Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category><Category id="13">Food<ExpenseEstimates frequency="Monthly" target="0.00" /></Category></CorvellaDocument>
)";

const QString kLee = QStringLiteral("3/7/14\t$45.10\tX\tDr. Lee & Sons\tCheckup\tMedical\n");
const QString kMarket = QStringLiteral("2/1/14\t$1,234.50\t\tMarket\t\tFood\n");
const QString kBaker = QStringLiteral("12/31/13\t$9.00\t\tBaker\trolls\tFood\n");
const QString kDeposit = QStringLiteral("3/1/14\t$50.00\t\tDeposit\t\tFood\n");

class ExportProgram : public ProgramFixture {
protected:
    [[nodiscard]] Result exported(const QStringList& options) const {
        QStringList arguments = QStringList{"export"} + options;
        if (!options.contains("--data"))
            arguments << "--data" << mFile;
        if (!options.contains("--today"))
            arguments << "--today"
                      << "2014/03/08";
        return run(arguments);
    }

    QString mFile = write("budget.corvella", kExportedBudget);
};

TEST_F(ExportProgram, WritesTheLinesThatTheWindowWouldExport) {
    struct Row {
        QStringList options;
        QString lines;
    };
    const QList<Row> rows{
        {{}, kLee + kMarket + kBaker},
        {{"--range", "0"}, kLee + kMarket + kBaker},
        // The range of last year is moved to begin at the first transaction, and is not shortened.
        {{"--range", "2"}, kLee + kMarket + kBaker},
        {{"--range", "3"}, kLee + kMarket},
        {{"--range", "4"}, kMarket},
        {{"--from", "2013/12/31", "--to", "2014/02/01"}, kMarket + kBaker},
        {{"--from", "2014-02-01"}, kLee + kMarket},
        {{"--from", "2014-02"}, kLee + kMarket},
        {{"--from", "2014"}, kLee + kMarket},
        {{"--from", "2015"}, ""},
        {{"--to", "2014-02"}, kMarket + kBaker},
        {{"--to", "2013"}, kBaker},
        {{"--to", "2012"}, ""},
        {{"--to", "today"}, kLee + kMarket + kBaker},
        {{"--from", "today"}, ""},
        {{"--from", "2013", "--to", "2014-02-01"}, kMarket + kBaker},
        {{"--range", "2014-02"}, kMarket},
        {{"--range", "2013"}, kBaker},
        {{"--range", "2014-03-07"}, kLee},
        {{"--range", "today"}, ""},
        {{"--set", "Savings"}, kDeposit},
        {{"--search", "1:BAK"}, kBaker},
        {{"--search", "6:9"}, kLee + kMarket},
        {{"--search", "0:nothing like it"}, ""},
        {{"--search", "2:"}, kLee + kMarket + kBaker},
        {{"--sort", "amount"}, kBaker + kLee + kMarket},
        {{"--sort", "amount:descending"}, kMarket + kLee + kBaker},
        {{"--sort", "date"}, kBaker + kMarket + kLee},
        {{"--sort", "tofrom"}, kBaker + kLee + kMarket},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.options.join(' ').toStdString());
        const Result result = exported(row.options);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, row.lines);
        EXPECT_EQ(result.errors, "");
    }
}

constexpr const char* kLeeRow = "2014-03-07,45.1,Medical,Dr. Lee & Sons,Checkup,yes,,Checking\r\n";
constexpr const char* kMarketRow = "2014-02-01,1234.5,Food,Market,,,,Checking\r\n";
constexpr const char* kBakerRow = "2013-12-31,9,Food,Baker,rolls,,yes,Checking\r\n";
constexpr const char* kDepositRow = "2014-03-01,50,Food,Deposit,,,,Savings\r\n";

TEST_F(ExportProgram, WritesTheSameLinesInEachFormatOfASetOrOfAll) {
    const QString header = "Date,Amount,Category,Paid To,For,Tax,Flagged,Set\r\n";
    struct Row {
        QStringList options;
        QString text;
    };
    const QList<Row> rows{
        {{"--format", "tsv"}, kLee + kMarket + kBaker},
        {{"--format", "tsv", "--all-sets"}, kLee + kDeposit + kMarket + kBaker},
        {{"--all-sets"}, kLee + kDeposit + kMarket + kBaker},
        {{"--format", "csv"}, header + kLeeRow + kMarketRow + kBakerRow},
        {{"--format", "csv", "--set", "Savings"}, header + kDepositRow},
        {{"--format", "csv", "--all-sets"}, header + kLeeRow + kDepositRow + kMarketRow + kBakerRow},
        {{"--format", "csv", "--all-sets", "--range", "2014", "--sort", "amount"},
         header + kLeeRow + kDepositRow + kMarketRow},
        {{"--format", "csv", "--search", "1:BAK"}, header + kBakerRow},
        {{"--format", "csv", "--to", "2012"}, header},
        {{"--format", "json", "--to", "2012"}, "[]\n"},
        {{"--format", "json", "--all-sets", "--search", "1:deposit"},
         R"([
{"date":"2014-03-01","amount":50,"category":"Food","paidTo":"Deposit","for":"","tax":false,"flagged":false,"set":"Savings"}
]
)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.options.join(' ').toStdString());
        const Result result = exported(row.options);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, row.text);
        EXPECT_EQ(result.errors, "");
    }
}

TEST_F(ExportProgram, WritesPlainNumbersWhateverTheLocale) {
    mEnvironment.insert("LC_ALL", "de_DE.UTF-8");
    EXPECT_TRUE(exported({}).output.contains("01.02.14\t")) << "the list is written as the locale has it";
    EXPECT_TRUE(exported({"--format", "csv"}).output.contains(kMarketRow));
    EXPECT_TRUE(exported({"--format", "json"}).output.contains(R"({"date":"2014-02-01","amount":1234.5,)"));
}

TEST_F(ExportProgram, WritesAFileAndNothingElse) {
    const QStringList before = everything();
    const QString path = mHome.filePath("out.txt");
    const Result result = exported({"--output", path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), kLee + kMarket + kBaker);
    ASSERT_TRUE(file.remove());
    EXPECT_EQ(everything(), before);
}

TEST_F(ExportProgram, SaysInOneLineWhatFailed) {
    struct Row {
        QStringList options;
        int status;
        const char* reason;
    };
    const QList<Row> rows{
        {{"--set", "Cash"}, 1, "no transaction set \"Cash\""},
        {{"--output", mHome.filePath("missing/out.txt")}, 1, "could not be written"},
        {{"--data", mHome.filePath("missing")}, 1, "does not exist"},
        {{"--range", "8"}, 2, "0 to 7"},
        {{"--range", "x"}, 2, "0 to 7"},
        {{"--set", "Savings", "--set", "Checking"}, 2, "--set is given twice"},
        {{"--output", "x", "--output", "x"}, 2, "--output is given twice"},
        {{"--data", mFile, "--data", mFile}, 2, "--data is given twice"},
        {{"--paper", "a4"}, 2, "paper"},
        {{"--range", "2014-13"}, 2, "0 to 7"},
        {{"--from", "2014/02/30", "--to", "2014/03/01"}, 2, "--from takes a day"},
        {{"--range", "1", "--from", "2014/01/01", "--to", "2014/03/01"}, 2, "either"},
        {{"--search", "9:x"}, 2, "0 to 8"},
        {{"--search", "market"}, 2, "0 to 8"},
        {{"--sort", "colour"}, 2, "--sort takes"},
        {{"--sort", "set"}, 2, "--sort takes"},
        {{"--sort", "date:up"}, 2, "--sort takes"},
        {{"--today", "now"}, 2, "--today takes a day"},
        {{"--format", "xml"}, 2, "--format takes tsv, csv or json, not \"xml\""},
        {{"--format", "CSV"}, 2, "--format takes tsv, csv or json, not \"CSV\""},
        {{"--format", "csv", "--format", "csv"}, 2, "--format is given twice"},
        {{"--all-sets", "--set", "Savings"}, 2, "give either --set or --all-sets"},
        {{"--all-sets=no"}, 2, "all-sets"},
        {{"--nonsense"}, 2, "nonsense"},
        {{"file"}, 2, "no argument"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.options.join(' ').toStdString());
        const Result result = exported(row.options);
        EXPECT_EQ(result.status, row.status);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.startsWith("corvella: ")) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.section('\n', 0, 0).contains(row.reason)) << result.errors.toStdString();
    }
}

} // namespace
