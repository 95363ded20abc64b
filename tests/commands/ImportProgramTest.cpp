#include "ProgramFixture.h"
#include "kit/ThreadChecker.h"

namespace {

class ImportProgram : public ProgramFixture {
protected:
    [[nodiscard]] Result dryRun(const QByteArray& statement, const QStringList& options = {}) const {
        return run(QStringList{"import", write("statement.csv", statement), "--set", "Checking", "--dry-run"} +
                   options);
    }
};

const QString kHead = QStringLiteral("date,amount,payee,for,category,sure,note\n");

TEST_F(ImportProgram, WritesTheLinesOfAStatementWithoutRecordingThem) {
    const QByteArray statement = "Datum;Empf\xe4nger;Verwendungszweck;Betrag\n13.03.2024;B\xe4ker, Markt;Brot;-12,50\n"
                                 "14.03.2024;Firma;Lohn \"M\xe4rz\";1.000,00\n";
    const QStringList before = everything();
    const Result plain = dryRun(statement);
    EXPECT_EQ(plain.status, 0) << plain.errors.toStdString();
    EXPECT_EQ(plain.output, kHead + "2024-03-13,12.50,\"Bäker, Markt\",Brot,,,no category yet\n"
                                    "2024-03-14,-1000.00,Firma,\"Lohn \"\"März\"\"\",,,no category yet\n");
    EXPECT_EQ(dryRun(statement, {"--signed"}).output,
              kHead + "2024-03-13,-12.50,\"Bäker, Markt\",Brot,,,no category yet\n"
                      "2024-03-14,1000.00,Firma,\"Lohn \"\"März\"\"\",,,no category yet\n");
    EXPECT_EQ(everything().size(), before.size() + 1);
}

TEST_F(ImportProgram, AsksInOneLineThatNamesTheOptionsAndTakesTheAnswer) {
    const QByteArray statement = "Date,Payee,Amount\n03/04/2024,Shop,-1.00\n";
    const Result asked = dryRun(statement);
    EXPECT_EQ(asked.status, 1);
    EXPECT_EQ(asked.output, "");
    EXPECT_EQ(asked.errors,
              "corvella: In line 2, is \"03/04/2024\" 3 April 2024 or 4 March 2024? Answer with --date-order dmy (3 "
              "April 2024) or --date-order mdy (4 March 2024)\n");
    EXPECT_EQ(dryRun(statement, {"--date-order", "mdy"}).output, kHead + "2024-03-04,1.00,Shop,,,,no category yet\n");
}

TEST_F(ImportProgram, TakesAnOptionForEachThingThatIsGuessed) {
    struct Row {
        QByteArray statement;
        QStringList options;
        QString lines;
    };
    const QList<Row> rows{
        {"Date;Payee;Amount\n13.03.2024;A;-1.000\n",
         {"--decimal", "comma"},
         "2024-03-13,1000.00,A,,,,no category yet\n"},
        {"Date;Payee;Amount\n13.03.2024;A;-1.000\n", {"--decimal", "point"}, "2024-03-13,1.00,A,,,,no category yet\n"},
        {"Date;Payee;Amount\n13.03.;A;-1,00\n", {"--year", "2022"}, "2022-03-13,1.00,A,,,,no category yet\n"},
        {"Date;Payee;Amount\n30.12.;A;-1,00\n02.01.;B;-1,00\n",
         {"--year", "2021-2022"},
         "2021-12-30,1.00,A,,,,no category yet\n2022-01-02,1.00,B,,,,no category yet\n"},
        {"Date;Payee;Amount\n13.03.2024;A;1,00\n", {"--sign", "inverted"}, "2024-03-13,1.00,A,,,,no category yet\n"},
        {"Date;Payee;Amount\n13.03.2024;A;1,00\n", {"--sign", "normal"}, "2024-03-13,-1.00,A,,,,no category yet\n"},
        {"2024-03-13,A,5.00,87.50\n", {"--out", "3", "--header", "none"}, "2024-03-13,5.00,A,,,,no category yet\n"},
        {"2024-03-13,A,5.00,87.50\n", {"--in", "3"}, "2024-03-13,-5.00,A,,,,no category yet\n"},
        {"2024-03-13,A,-5.00,87.50\n", {"--amount", "3", "--payee", "2"}, "2024-03-13,5.00,A,,,,no category yet\n"},
        {"2024-03-13,A,5.00,B\n",
         {"--payee", "2", "--payer", "4", "--sign", "normal"},
         "2024-03-13,-5.00,B,,,,no category yet\n"},
        {"2024-03-13,A,-5.00,EUR,X\n", {"--payee", "2", "--currency", "5"}, "2024-03-13,5.00,A,,,,no category yet\n"},
        {"Date,Payee,Amount,Fee\n2024-03-13,A,-5.00,1.00\n", {"--fee", "4"}, "2024-03-13,6.00,A,,,,no category yet\n"},
        {"Date,Payee,Amount,Fee\n2024-03-13,A,-5.00,1.00\n",
         {"--ignore", "4"},
         "2024-03-13,5.00,A,,,,no category yet\n"},
        {"Date,Payee,Amount,What\n2024-03-13,A,5.00,weg\n",
         {"--marker", "4", "--out-marker", "weg"},
         "2024-03-13,5.00,A,,,,no category yet\n"},
        {"x;y\nDate;Payee;Amount\n13.03.2024;\xc8;-1,00\n",
         {"--encoding", "windows-1250"},
         "2024-03-13,1.00,Č,,,,no category yet\n"},
        {"Date;Payee;Amount\n13.03.2024;A;-1,00\n",
         {"--header", "1", "--separator", "semicolon"},
         "2024-03-13,1.00,A,,,,no category yet\n"}};
    for (const auto& [statement, options, lines] : rows) {
        const Result result = dryRun(statement, options);
        EXPECT_EQ(result.status, 0) << result.errors.toStdString();
        EXPECT_EQ(result.output, kHead + lines) << options.join(' ').toStdString();
    }
}

TEST_F(ImportProgram, NamesTheOptionThatSaysWhichColumnItIs) {
    EXPECT_EQ(dryRun("Foo,2026-03-04,-3.00\nBar,2026-03-05,-4.00\n", {"--ignore", "2"}).errors,
              "corvella: No column holds the days. Please say which one does. Answer with --date N\n");
    EXPECT_EQ(dryRun("Foo,2026-03-04,-3.00\nBar,2026-03-05,-4.00\n", {"--ignore", "3"}).errors,
              "corvella: No column holds the amounts. Please say which one does. Answer with --amount N\n");
    EXPECT_EQ(dryRun("2026-03-04,A,1.01,2.11,3.25,4.35,5.45,6.55,7.65,8.75,9.85\n"
                     "2026-03-05,B,7.77,8.12,9.31,5.12,6.21,3.33,2.47,1.58,4.69\n")
                  .errors,
              "corvella: Too many columns could hold the amounts. Please say which one does. Answer with --amount N\n");
}

TEST_F(ImportProgram, NotesWhatTheStatementItselfContradicts) {
    const Result balances = dryRun("Date,Payee,Amount,Balance\n2026-03-01,A,-3.00,97.00\n2026-03-02,B,-4.00,93.00\n"
                                   "2026-03-03,C,-5.00,80.00\n2026-03-04,D,-6.00,74.00\n");
    EXPECT_EQ(balances.status, 0);
    EXPECT_EQ(balances.errors,
              "corvella: note: 1 of 3 balances differ from the sums of the lines; the first is in line 4.\n");
    const Result currencies = dryRun("Date,Payee,Amount,Currency\n2026-03-01,A,-3.00,EUR\n2026-03-02,B,-4.00,USD\n"
                                     "2026-03-03,C,7.00,EUR\n");
    EXPECT_EQ(currencies.status, 0);
    EXPECT_EQ(currencies.errors, "corvella: note: 1 line is in another currency and is left out\n");
    EXPECT_TRUE(currencies.output.contains(",B,,,,in another currency (USD); no category yet\n") ||
                currencies.output.contains(",B,,,,in another currency (USD)\n"))
        << currencies.output.toStdString();
}

TEST_F(ImportProgram, EndsWithOneWhereALineCouldNotBeReadUnlessThatIsAllowed) {
    const QByteArray statement = "Date;Payee;Amount\n13.03.2024;A;n/a\n14.03.2024;B;-1,00\n";
    const QString lines =
        kHead +
        "2024-03-13,,A,,,,\"line 2 cannot be read: \"\"n/a\"\" is no amount\"\n2024-03-14,1.00,B,,,,no category yet\n";
    const Result strict = dryRun(statement);
    EXPECT_EQ(strict.status, 1);
    EXPECT_EQ(strict.output, lines);
    EXPECT_EQ(strict.errors, "corvella: 1 line could not be read\n");
    const Result lenient = dryRun(statement, {"--skip-unreadable"});
    EXPECT_EQ(lenient.status, 0);
    EXPECT_EQ(lenient.output, lines);
}

TEST_F(ImportProgram, RefusesWhatItDoesNotUnderstand) {
    const QString file = write("statement.csv", "2024-03-13,A,-5.00\n");
    for (const QStringList& arguments :
         QList<QStringList>{{"import"},
                            {"import", file},
                            {"import", file, file, "--set", "A"},
                            {"import", file, "--set", "A", "--date", "x"},
                            {"import", file, "--set", "A", "--date", "1", "--amount", "1"},
                            {"import", file, "--set", "A", "--income", "all"},
                            {"import", file, "--set", "A", "--header", "0"},
                            {"import", file, "--set", "A", "--date-order", "dym"},
                            {"import", file, "--set", "A", "--year", "2026-26"},
                            {"import", file, "--set", "A", "--year", "2026-2025-2024"},
                            {"import", file, "--set", "A", "--encoding", "x"},
                            {"import", file, "--set", "A", "--signed"},
                            {"import", file, "--set", "A", "--income-set", "A"},
                            {"import", file, "--set", "A", "--mapping", "M", "--date", "1"},
                            {"import", file, "--set", "A", "--category-for-rest", ""},
                            {"import", file, "--set", "A", "--data", "-"},
                            {"import", "-", "--set", "A", "--data", "-", "--dry-run"}})
        EXPECT_EQ(run(arguments).status, 2) << arguments.join(' ').toStdString();
    const Result missing = run({"import", "missing.csv", "--set", "A", "--dry-run"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(missing.errors.startsWith("corvella: \"missing.csv\" could not be read: "));
    EXPECT_EQ(dryRun("Dear Sir,\n").status, 1);
}

constexpr const char* kKnownBudget = R"(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="27" />
<TransactionSet id="27">Checking</TransactionSet><TransactionSet id="28">Income</TransactionSet>
<Transaction categoryID="12" flag="0" tax_flag="0" transaction_set_id="27"><Data date="2024/02/07" amount="45.10" /><PayToFrom>Dr. Lee</PayToFrom><For>Checkup</For></Transaction>
<Transaction categoryID="12" flag="0" tax_flag="0" transaction_set_id="27"><Data date="2024/01/09" amount="30.00" /><PayToFrom>Dr. Lee</PayToFrom><For>Checkup</For></Transaction>
<Transaction categoryID="13" flag="0" tax_flag="0" transaction_set_id="27"><Data date="2024/03/12" amount="12.50" /><PayToFrom>Market</PayToFrom><For></For></Transaction>
<Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category><Category id="13">Food<ExpenseEstimates frequency="Monthly" target="0.00" /></Category></CorvellaDocument>
)";

/// One of a known payee, one that is recorded already, one of an unknown payee, and money in.
const QByteArray kStatement = "Date;Payee;Amount\n13.03.2024;DR. LEE;-40,00\n13.03.2024;Market;-12,50\n"
                              "14.03.2024;Kiosk;-3,00\n15.03.2024;Firm;1000,00\n";

/// Imports into a budget that the user names.
class ImportIntoProgram : public ImportProgram {
protected:
    [[nodiscard]] Result import(const QStringList& options, const QString& set = "Checking") const {
        return run(QStringList{"import", mStatement, "--set", set, "--data", mBudget} + options);
    }
    [[nodiscard]] static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] QString exported(const QString& set) const {
        return run({"export", "--data", mBudget, "--set", set, "--today", "2024/03/20"}).output;
    }
    /// Nothing is recorded and nothing is left beside the budget.
    void expectUntouched() const {
        EXPECT_EQ(bytesOf(mBudget), kKnownBudget);
        EXPECT_EQ(QDir(QFileInfo(mBudget).path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList{"budget.corvella"});
    }
    [[nodiscard]] QStringList versions() const {
        return QDir(QFileInfo(mBudget).path() + "/Earlier Versions").entryList({"*import*"}, QDir::Files);
    }

    QString mBudget = write("budget/budget.corvella", kKnownBudget);
    QString mStatement = write("statement.csv", kStatement);
};

TEST_F(ImportIntoProgram, TheDryRunShowsWhatTheMemoryKnowsAndWritesNothing) {
    const Result shown = import({"--dry-run"});
    EXPECT_EQ(shown.status, 0) << shown.errors.toStdString();
    EXPECT_EQ(shown.output, kHead + "2024-03-13,40.00,DR. LEE,Checkup,Medical,sure,\n"
                                    "2024-03-13,12.50,Market,,Food,likely,recorded on 3/12 already\n"
                                    "2024-03-14,3.00,Kiosk,,,,no category yet\n"
                                    "2024-03-15,-1000.00,Firm,,,,no category yet\n");
    const QString filled = import({"--dry-run", "--category-for-rest", "Food"}).output;
    EXPECT_TRUE(filled.contains("2024-03-14,3.00,Kiosk,,Food,,\n")) << filled.toStdString();
    const QString signedIn = import({"--dry-run", "--signed", "--income-set", "Income"}).output;
    EXPECT_TRUE(signedIn.contains("2024-03-15,1000.00,Firm,")) << signedIn.toStdString();
    EXPECT_TRUE(signedIn.contains("2024-03-13,-40.00,DR. LEE,")) << signedIn.toStdString();
    const Result unknown = import({"--dry-run"}, "Shoebox");
    EXPECT_EQ(unknown.status, 0);
    EXPECT_EQ(unknown.errors,
              "corvella: note: there is no transaction set \"Shoebox\"; \"corvella sets\" lists them\n");
    EXPECT_TRUE(unknown.output.contains("DR. LEE,Checkup,Medical,sure,\n")) << unknown.output.toStdString();
    expectUntouched();
}

TEST_F(ImportIntoProgram, RecordsTheCheckedLinesKeepsTheEarlierVersionAndCounts) {
    const Result imported = import({"--category-for-rest", "Odds", "--income-set", "Income"});
    EXPECT_EQ(imported.status, 0);
    EXPECT_EQ(imported.errors, "");
    EXPECT_EQ(imported.output, "3 transactions imported\n");
    const QString out = exported("Checking");
    EXPECT_TRUE(out.contains("3/13/24\t$40.00\t\tDR. LEE\tCheckup\tMedical\n")) << out.toStdString();
    EXPECT_TRUE(out.contains("3/14/24\t$3.00\t\tKiosk\t\tOdds\n")) << out.toStdString();
    EXPECT_EQ(out.count("Market"), 1);
    EXPECT_EQ(exported("Income"), "3/15/24\t$1,000.00\t\tFirm\t\tOdds\n");
    EXPECT_EQ(bytesOf(mStatement), kStatement);
    ASSERT_EQ(versions().size(), 1);
    EXPECT_EQ(bytesOf(QFileInfo(mBudget).path() + "/Earlier Versions/" + versions()[0]), kKnownBudget);
    EXPECT_FALSE(QFile::exists(QFileInfo(mBudget).path() + "/.budget.corvella.lock"));
    const QByteArray once = bytesOf(mBudget);
    const Result again = import({"--income-set", "Income"});
    EXPECT_EQ(again.status, 0) << again.errors.toStdString();
    EXPECT_EQ(again.output, "0 transactions imported\n");
    EXPECT_EQ(bytesOf(mBudget), once);
}

TEST_F(ImportIntoProgram, TheAnswerIsKeptByTheHeaderForTheNextStatement) {
    const auto statement = [this](const QByteArray& day) {
        (void)write("statement.csv", "Date,Payee,Amount\n" + day + ",Market,-1.00\n");
    };
    statement("03/04/2024");
    EXPECT_EQ(import({}).status, 1);
    expectUntouched();
    EXPECT_EQ(import({"--date-order", "dmy"}).output, "1 transaction imported\n");
    statement("05/06/2024");
    const Result next = import({});
    EXPECT_EQ(next.output, "1 transaction imported\n") << next.errors.toStdString();
    EXPECT_TRUE(run({"export", "--data", mBudget}).output.contains("6/5/24\t$1.00\t\tMarket"));
    // An option about something else leaves it as it is.
    statement("07/08/2024");
    EXPECT_EQ(import({"--payee", "2"}).output, "1 transaction imported\n");
    EXPECT_TRUE(run({"export", "--data", mBudget}).output.contains("8/7/24\t$1.00\t\tMarket"));
}

TEST_F(ImportIntoProgram, KeepsNotesThatItCannotReadAndSaysWhere) {
    (void)write("budget/budget.corvella.import", "{\"import notes\": 2}");
    const Result result = import({"--income", "none", "--category-for-rest", "Food"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(
        result.errors.startsWith("corvella: note: what former statements taught could not be read; it is kept as \"" +
                                 QFileInfo(mBudget).path() + "/budget.corvella (unreadable "))
        << result.errors.toStdString();
}

TEST_F(ImportIntoProgram, RecordsNothingWhereSomethingIsMissingAndSaysWhat) {
    struct Row {
        QStringList arguments;
        QString error;
    };
    const QString unreadable =
        write("unreadable.csv", "Date;Payee;Amount\n13.03.2024;Dr. Lee;n/a\n14.03.2024;Dr. Lee;-1,00\n");
    const QList<Row> rows{
        {{mStatement, "--set", "Shoebox", "--data", mBudget},
         "there is no transaction set \"Shoebox\"; \"corvella sets\" lists them"},
        {{mStatement, "--set", "Checking", "--income-set", "Wages", "--data", mBudget},
         "there is no transaction set \"Wages\"; \"corvella sets\" lists them"},
        {{mStatement, "--set", "Checking", "--data", mBudget},
         "2 lines have no category: 4, 5, so nothing was imported; --category-for-rest NAME gives one to all that "
         "have none, --dry-run shows them"},
        {{mStatement, "--set", "Checking", "--income", "none", "--data", mBudget},
         "line 4 has no category, so nothing was imported; --category-for-rest NAME gives one to all that have none, "
         "--dry-run shows them"},
        {{unreadable, "--set", "Checking", "--data", mBudget},
         "1 line could not be read, so nothing was imported; --dry-run shows why, --skip-unreadable imports the "
         "others"},
        {{mStatement, "--set", "Checking", "--mapping", "Mine", "--data", mBudget},
         "no mapping has the name \"Mine\"; how a statement is read is kept by its header and used without --mapping"},
        {{mBudget, "--data", mBudget},
         QString("\"%1\" is the data file itself; there is nothing to import").arg(mBudget)},
        {{mBudget, "--dry-run", "--data", mBudget},
         QString("\"%1\" is the data file itself; there is nothing to import").arg(mBudget)},
        {{mStatement, "--set", "Checking"}, "there is no data file yet; name one with --data FILE"}};
    for (const auto& [arguments, error] : rows) {
        const Result result = run(QStringList{"import"} + arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, "corvella: " + error + '\n');
        expectUntouched();
    }
    EXPECT_EQ(run({"import", unreadable, "--set", "Checking", "--skip-unreadable", "--data", mBudget}).output,
              "1 transaction imported\n");
}

TEST_F(ImportIntoProgram, RefusesWhileAProgramHasTheFileOpen) {
    const QString lock = QFileInfo(mBudget).path() + "/.budget.corvella.lock";
    (void)write("budget/.budget.corvella.lock", "not a lock that anybody can read");
    const Result doubtful = import({"--income", "none", "--category-for-rest", "Food"});
    EXPECT_EQ(doubtful.status, 1);
    EXPECT_TRUE(doubtful.errors.contains("may be open elsewhere")) << doubtful.errors.toStdString();
    EXPECT_TRUE(QFile::remove(lock));
    expectUntouched();
    // The dry run only reads.
    (void)write("budget/.budget.corvella.lock", "not a lock that anybody can read");
    EXPECT_EQ(import({"--dry-run"}).status, 0);
}

TEST_F(ImportIntoProgram, RefusesWhileAProgramRunsWithTheUsersOwnBudget) {
    const QString own = write("data/Quenby Labs/Corvella/Corvella Data.corvella", kKnownBudget);
    const QString command = QStringLiteral("\"$CORVELLA\" import statement.csv --set Checking --income none "
                                           "--category-for-rest Food 2>&1");
    const Result running = shell("python3 -c 'import fcntl,os,struct,subprocess,sys\n"
                                 "f=open(\"data/Quenby Labs/Corvella/.running.lock\",\"w\")\n"
                                 "fcntl.fcntl(f,37,struct.pack(\"hhqqi\",fcntl.F_WRLCK,0,0,0,0))\n"
                                 "sys.exit(subprocess.call(sys.argv[1],shell=True))' '" +
                                 command + "'");
    EXPECT_EQ(running.status, 1);
    EXPECT_EQ(running.output,
              "corvella: Corvella is running with your budget; nothing is written until it is closed\n");
    EXPECT_EQ(bytesOf(own), kKnownBudget);
    EXPECT_EQ(shell(command).output, "2 transactions imported\n");
}

TEST_F(ImportIntoProgram, AFullDiskIsToldAndLeavesTheBudgetAsItWas) {
    if (kThreadsAreChecked)
        GTEST_SKIP() << "the thread checker does not live with a limit for the size of files";
    QByteArray lines;
    for (int number = 0; number < 400; ++number)
        lines += "13.03.2023;Market;-" + QByteArray::number(number + 1000) + ",00\n";
    (void)write("statement.csv", "Date;Payee;Amount\n" + lines);
    // A limit on the size of files stands for the full disk.
    const Result full = shell("trap '' XFSZ; ulimit -f 16; \"$CORVELLA\" import statement.csv --set Checking --data "
                              "budget/budget.corvella 2>&1");
    EXPECT_EQ(full.status, 1);
    EXPECT_TRUE(full.output.startsWith("corvella: The budget could not be saved")) << full.output.toStdString();
    EXPECT_TRUE(full.output.contains("File too large")) << full.output.toStdString();
    EXPECT_EQ(full.output.count('\n'), 1);
    EXPECT_EQ(bytesOf(mBudget), kKnownBudget);
    EXPECT_FALSE(QFile::exists(mBudget + ".import"));
}

constexpr const char* kOtherBudget = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="27" />
<TransactionSet id="27">Card</TransactionSet><TransactionSet id="28">Checking</TransactionSet>
<Transaction categoryID="12" flag="0" tax_flag="0" transaction_set_id="28"><Data date="2024/03/12" amount="12.50" /><PayToFrom>Market</PayToFrom><For></For></Transaction>
<Transaction categoryID="13" flag="1" tax_flag="1" transaction_set_id="27"><Data date="2024/03/14" amount="-1234.50" /><PayToFrom>Hotel "Sun", Rome</PayToFrom><For>a, b</For></Transaction>
<Transaction categoryID="12" flag="0" tax_flag="0" transaction_set_id="28"><Data date="(null)" amount="0.01" /><PayToFrom></PayToFrom><For></For></Transaction>
<Category id="12">Food<ExpenseEstimates frequency="Monthly" target="7.00" /></Category><Category id="13">Travel<ExpenseEstimates frequency="Monthly" target="0.00" /></Category></CorvellaDocument>
)xml";
const QString kHeadOfTransfer = QStringLiteral("Date,Amount,Category,Paid To,For,Tax,Flagged,Set\r\n");
const QString kOtherLines =
    QStringLiteral("2024-03-14,-1234.5,Travel,\"Hotel \"\"Sun\"\", Rome\",\"a, b\",yes,yes,Card\r\n"
                   ",0.01,Food,,,,,Checking\r\n");

TEST_F(ImportIntoProgram, AnotherBudgetComesInUnderTheNamesOfItsSetsAndCategories) {
    const QString other = write("other.csv", kOtherBudget);
    const auto importOther = [&](const QStringList& options) {
        return run(QStringList{"import", other, "--data", mBudget} + options);
    };
    const Result shown = importOther({"--dry-run"});
    EXPECT_EQ(shown.status, 0) << shown.errors.toStdString();
    EXPECT_EQ(shown.output, kHeadOfTransfer + kOtherLines);
    mEnvironment.insert("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(importOther({"--dry-run"}).output, kHeadOfTransfer + kOtherLines);
    expectUntouched();
    const Result imported = importOther({});
    EXPECT_EQ(imported.status, 0);
    EXPECT_EQ(imported.errors, "");
    EXPECT_EQ(imported.output, "2 transactions imported\n");
    EXPECT_EQ(bytesOf(other), kOtherBudget);
    EXPECT_EQ(run({"sets", "--data", mBudget}).output, "Checking\nIncome\nCard\n");
    ASSERT_EQ(versions().size(), 1);
    EXPECT_EQ(bytesOf(QFileInfo(mBudget).path() + "/Earlier Versions/" + versions()[0]), kKnownBudget);
    EXPECT_FALSE(QFile::exists(QFileInfo(mBudget).path() + "/.budget.corvella.lock"));
    EXPECT_FALSE(QFile::exists(mBudget + ".import"));
    const QByteArray once = bytesOf(mBudget);
    EXPECT_EQ(importOther({}).output, "0 transactions imported\n");
    EXPECT_EQ(importOther({"--dry-run"}).output, kHeadOfTransfer);
    EXPECT_EQ(bytesOf(mBudget), once);
}

TEST_F(ImportIntoProgram, ExportedTransactionsComeBackIntoAnEmptyBudget) {
    (void)write("other.corvella", kOtherBudget);
    const QString empty = write(
        "empty.corvella", "<CorvellaDocument os=\"Mac OS X\" app=\"com.quenbylabs.corvella\"></CorvellaDocument>\n");
    for (const QString format : {"csv", "json"}) {
        const QByteArray lines = (kHeadOfTransfer + kOtherLines).toUtf8();
        const QByteArray objects =
            R"([{"date":"2024-03-14","amount":-1234.5,"category":"Travel","paidTo":"Hotel \"Sun\", Rome","for":"a, b","tax":true,"flagged":true,"set":"Card"},
{"date":null,"amount":0.01,"category":"Food","paidTo":"","for":"","tax":false,"flagged":false,"set":"Checking"}])";
        const QString file = write("exported." + format, format == "csv" ? lines : objects);
        const QString into = mHome.filePath("into " + format);
        ASSERT_TRUE(QFile::copy(empty, into));
        EXPECT_EQ(run({"import", file, "--data", into}).output, "2 transactions imported\n");
        EXPECT_EQ(run({"sets", "--data", into}).output, "Card\nChecking\n");
        const Result again = run({"import", "other.corvella", "--dry-run", "--data", into});
        EXPECT_EQ(again.output, kHeadOfTransfer + "2024-03-12,12.5,Food,Market,,,,Checking\r\n")
            << again.errors.toStdString();
    }
    const Result piped = shell("cat other.corvella | \"$CORVELLA\" import - --dry-run --data empty.corvella");
    EXPECT_EQ(piped.output.count('\n'), 4) << piped.errors.toStdString();
}

TEST_F(ImportIntoProgram, AnotherBudgetTakesNoOptionOfStatements) {
    const QString other = write("other.corvella", kOtherBudget);
    for (const QStringList& options : QList<QStringList>{{"--set", "Checking"},
                                                         {"--income", "none"},
                                                         {"--signed", "--dry-run"},
                                                         {"--date", "1"},
                                                         {"--skip-unreadable"},
                                                         {"--category-for-rest", "Food"},
                                                         {"--mapping", "M"}}) {
        const Result refused = run(QStringList{"import", other, "--data", mBudget} + options);
        EXPECT_EQ(refused.status, 2);
        EXPECT_TRUE(refused.errors.startsWith(
            QString("corvella: %1 goes with a bank's statement; \"%2\" is a Corvella budget, whose transactions say "
                    "which set and category they are in\n")
                .arg(options[0], other)))
            << refused.errors.toStdString();
    }
    const Result exported = run({"import", write("e.csv", kHeadOfTransfer.toUtf8()), "--set", "A", "--data", mBudget});
    EXPECT_EQ(exported.status, 2);
    EXPECT_TRUE(exported.errors.contains("holds transactions that Corvella has exported"))
        << exported.errors.toStdString();
    expectUntouched();
}

TEST_F(ImportIntoProgram, AnotherBudgetThatIsDamagedOrLockedOutRecordsNothing) {
    const QString other = write("other.corvella", QByteArray(kOtherBudget).chopped(60));
    const Result damaged = run({"import", other, "--data", mBudget});
    EXPECT_EQ(damaged.status, 1);
    EXPECT_TRUE(damaged.errors.startsWith(QString("corvella: \"%1\" could not be read: ").arg(other)));
    EXPECT_EQ(damaged.errors.count('\n'), 1);
    expectUntouched();
    const Result wrong =
        run({"import", write("e.csv", (kHeadOfTransfer + "2024-03-12,x,,,,,,\r\n").toUtf8()), "--data", mBudget});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_TRUE(wrong.errors.endsWith("could not be read: Line 2 cannot be read: \"x\" is no amount.\n"))
        << wrong.errors.toStdString();
    const QString partly = write("partly.corvella", QByteArray(kOtherBudget).replace("12.50", "12,50"));
    const Result noted = run({"import", partly, "--dry-run", "--data", mBudget});
    EXPECT_EQ(noted.status, 0);
    EXPECT_TRUE(noted.errors.startsWith("corvella: note: 1 place of that file was not understood, or only in part: "))
        << noted.errors.toStdString();
    (void)write("budget/.budget.corvella.lock", "not a lock that anybody can read");
    const Result locked = run({"import", write("whole.corvella", kOtherBudget), "--data", mBudget});
    EXPECT_EQ(locked.status, 1);
    EXPECT_TRUE(locked.errors.contains("may be open elsewhere")) << locked.errors.toStdString();
    EXPECT_EQ(bytesOf(mBudget), kKnownBudget);
}

TEST_F(ImportIntoProgram, NoOutputIsAddedToTheStatement) {
    const Result result =
        shell("\"$CORVELLA\" import statement.csv --set Checking --dry-run --data budget/budget.corvella "
              ">> statement.csv");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(bytesOf(mStatement), kStatement);
}

} // namespace
