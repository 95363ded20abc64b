#include "ProgramFixture.h"

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
    EXPECT_EQ(plain.output, kHead + "2024-03-13,12.50,\"Bäker, Markt\",Brot,,,\n"
                                    "2024-03-14,-1000.00,Firma,\"Lohn \"\"März\"\"\",,,\n");
    EXPECT_EQ(dryRun(statement, {"--signed"}).output, kHead + "2024-03-13,-12.50,\"Bäker, Markt\",Brot,,,\n"
                                                              "2024-03-14,1000.00,Firma,\"Lohn \"\"März\"\"\",,,\n");
    EXPECT_EQ(everything().size(), before.size() + 1);
}

TEST_F(ImportProgram, AsksInOneLineThatNamesTheOptionsAndTakesTheAnswer) {
    const QByteArray statement = "Date,Payee,Amount\n03/04/2024,Shop,-1.00\n";
    const Result asked = dryRun(statement);
    EXPECT_EQ(asked.status, 1);
    EXPECT_EQ(asked.output, "");
    EXPECT_EQ(asked.errors,
              "corvella: Is \"03/04/2024\" in line 2 3 April 2024 or 4 March 2024? Answer with --date-order dmy (3 "
              "April 2024) or --date-order mdy (4 March 2024)\n");
    EXPECT_EQ(dryRun(statement, {"--date-order", "mdy"}).output, kHead + "2024-03-04,1.00,Shop,,,,\n");
}

TEST_F(ImportProgram, TakesAnOptionForEachThingThatIsGuessed) {
    struct Row {
        QByteArray statement;
        QStringList options;
        QString lines;
    };
    const QList<Row> rows{
        {"Date;Payee;Amount\n13.03.2024;A;-1.000\n", {"--decimal", "comma"}, "2024-03-13,1000.00,A,,,,\n"},
        {"Date;Payee;Amount\n13.03.2024;A;-1.000\n", {"--decimal", "point"}, "2024-03-13,1.00,A,,,,\n"},
        {"Date;Payee;Amount\n13.03.;A;-1,00\n", {"--year", "2022"}, "2022-03-13,1.00,A,,,,\n"},
        {"Date;Payee;Amount\n13.03.2024;A;1,00\n", {"--sign", "inverted"}, "2024-03-13,1.00,A,,,,\n"},
        {"Date;Payee;Amount\n13.03.2024;A;1,00\n", {"--sign", "normal"}, "2024-03-13,-1.00,A,,,,\n"},
        {"2024-03-13,A,5.00,87.50\n", {"--out", "3", "--header", "none"}, "2024-03-13,5.00,,A,,,\n"},
        {"2024-03-13,A,5.00,87.50\n", {"--in", "3"}, "2024-03-13,-5.00,,A,,,\n"},
        {"2024-03-13,A,-5.00,87.50\n", {"--amount", "3", "--payee", "2"}, "2024-03-13,5.00,A,,,,\n"},
        {"Date,Payee,Amount,Fee\n2024-03-13,A,-5.00,1.00\n", {"--fee", "4"}, "2024-03-13,6.00,A,,,,\n"},
        {"Date,Payee,Amount,Fee\n2024-03-13,A,-5.00,1.00\n", {"--ignore", "4"}, "2024-03-13,5.00,A,,,,\n"},
        {"Date,Payee,Amount,What\n2024-03-13,A,5.00,weg\n",
         {"--marker", "4", "--out-marker", "weg"},
         "2024-03-13,5.00,A,,,,\n"},
        {"x;y\nDate;Payee;Amount\n13.03.2024;\xc8;-1,00\n", {"--encoding", "windows-1250"}, "2024-03-13,1.00,Č,,,,\n"},
        {"Date;Payee;Amount\n13.03.2024;A;-1,00\n",
         {"--header", "1", "--separator", "semicolon"},
         "2024-03-13,1.00,A,,,,\n"}};
    for (const auto& [statement, options, lines] : rows) {
        const Result result = dryRun(statement, options);
        EXPECT_EQ(result.status, 0) << result.errors.toStdString();
        EXPECT_EQ(result.output, kHead + lines) << options.join(' ').toStdString();
    }
}

TEST_F(ImportProgram, EndsWithOneWhereALineCouldNotBeReadUnlessThatIsAllowed) {
    const QByteArray statement = "Date;Payee;Amount\n13.03.2024;A;n/a\n14.03.2024;B;-1,00\n";
    const QString lines =
        kHead + "2024-03-13,,A,,,,\"line 2 cannot be read: \"\"n/a\"\" is no amount.\"\n2024-03-14,1.00,B,,,,\n";
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
                            {"import", file, "--set", "A", "--encoding", "x"},
                            {"import", file, "--set", "A", "--signed"}})
        EXPECT_EQ(run(arguments).status, 2) << arguments.join(' ').toStdString();
    const Result missing = run({"import", "missing.csv", "--set", "A", "--dry-run"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(missing.errors.startsWith("corvella: \"missing.csv\" could not be read: "));
    EXPECT_EQ(dryRun("Dear Sir,\n").status, 1);
}

} // namespace
