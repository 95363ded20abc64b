#include "ProgramFixture.h"
#include "kit/ThreadChecker.h"

namespace {

constexpr const char* kSmallBudget = R"(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="28" />
<TransactionSet id="27">Savings</TransactionSet><TransactionSet id="28">Checking &amp; more</TransactionSet>
<Transaction categoryID="12" flag="0" tax_flag="1" transaction_set_id="28"><Data date="2014/03/07" amount="45.10" /><PayToFrom>Dr. Lee</PayToFrom><For>Checkup</For></Transaction>
<Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category></CorvellaDocument>
)";

const QString kExportedLine = QStringLiteral("3/7/14\t$45.10\tX\tDr. Lee\tCheckup\tMedical\n");

/// What all commands have in common: streams, exit status, help, and the files that they must not overwrite.
class CommandLineProgram : public ProgramFixture {
protected:
    [[nodiscard]] QByteArray bytes(const QString& path) const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] static bool isOneLine(const QString& errors) {
        return errors.startsWith("corvella: ") && errors.count('\n') == 1;
    }

    QString mFile = write("own", kSmallBudget);
};

TEST_F(CommandLineProgram, ListsTheTransactionSets) {
    const Result result = run({"sets", "--data", mFile});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "Savings\nChecking & more\n");
    EXPECT_EQ(result.errors, "");
    const Result refused = run({"export", "--data", mFile, "--set", "Cash"});
    EXPECT_TRUE(refused.errors.contains("corvella sets")) << refused.errors.toStdString();
}

TEST_F(CommandLineProgram, FailsWhereStandardOutputCannotTakeAll) {
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "this machine has no device that is always full";
    for (const char* const command :
         {"check --data own", "sets --data own", "export --data own", "report tax --data own", "--help", "--version",
          "export --help", "report tax --data own --output -"}) {
        for (const char* const stream : {">/dev/full", ">&-"}) {
            SCOPED_TRACE(std::string(command) + ' ' + stream);
            const Result result = shell(QStringLiteral("\"$CORVELLA\" %1 %2").arg(command, stream));
            EXPECT_EQ(result.status, 1);
            EXPECT_TRUE(isOneLine(result.errors)) << result.errors.toStdString();
            EXPECT_TRUE(result.errors.contains("standard output could not be written: "))
                << result.errors.toStdString();
            EXPECT_FALSE(result.errors.contains("Unknown error")) << result.errors.toStdString();
        }
    }
}

/// A file size limit stands for the full disk: a write takes a part, and the next one fails.
TEST_F(CommandLineProgram, LeavesTheOldOutputWholeWhereTheDiskTakesAPart) {
    if (kThreadsAreChecked)
        GTEST_SKIP() << "the thread checker does not live with a limit for the size of files";
    QByteArray lines;
    for (int i = 0; i < 2000; ++i)
        lines +=
            R"(<Transaction categoryID="12" flag="0" tax_flag="1" transaction_set_id="28"><Data date="2014/03/07" amount="45.10" /><PayToFrom>Dr. Lee</PayToFrom><For>Checkup</For></Transaction>)";
    (void)write("own", QByteArray(kSmallBudget).replace("<Category id", lines + "<Category id"));
    const QString it = write("it", "old");
    for (const char* const command : {"export", "report transactions"}) {
        SCOPED_TRACE(command);
        const Result result =
            shell(QStringLiteral("trap '' XFSZ; ulimit -f 12; \"$CORVELLA\" %1 --data own --output it").arg(command));
        EXPECT_EQ(result.status, 1);
        EXPECT_TRUE(isOneLine(result.errors)) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains("\"it\" could not be written: File too large"))
            << result.errors.toStdString();
        EXPECT_EQ(bytes(it), "old");
        EXPECT_EQ(QDir(mHome.path()).entryList(QDir::Files).size(), 2);
        EXPECT_EQ(shell(QStringLiteral("\"$CORVELLA\" %1 --data own --output it").arg(command)).status, 0);
        EXPECT_GT(bytes(it).size(), 12 * 1024);
        (void)write("it", "old");
    }
}

TEST_F(CommandLineProgram, TellsTheReasonWhyAPdfIsNotWritten) {
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "this machine has no device that is always full";
    const Result result = run({"report", "tax", "--data", mFile, "--output", "/dev/full"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "corvella: \"/dev/full\" could not be written: No space left on device\n");
}

TEST_F(CommandLineProgram, WritesNothingOverADataFile) {
    const QString own = write("data/Quenby Labs/Corvella/Corvella Data.corvella", kSmallBudget);
    ASSERT_EQ(shell("ln -s own symbolic && ln own hard && mkdir inner").status, 0);
    for (const char* const command : {"export", "report tax"}) {
        for (const char* const arguments :
             {"--data own --output own", "--data own --output symbolic", "--data symbolic --output own",
              "--data own --output hard", "--data own --output inner/../own", "--data - --output own <own",
              "--data own --output \"data/Quenby Labs/Corvella/Corvella Data.corvella\"", "--data own >>own",
              "--data own --output - >>hard", "--data own --output /dev/stdout >>own",
              "--output \"data/Quenby Labs/Corvella/Corvella Data.corvella\""}) {
            SCOPED_TRACE(std::string(command) + ' ' + arguments);
            const Result result = shell(QStringLiteral("\"$CORVELLA\" %1 %2").arg(command, arguments));
            EXPECT_EQ(result.status, 1);
            EXPECT_TRUE(isOneLine(result.errors)) << result.errors.toStdString();
            EXPECT_TRUE(result.errors.contains("it is the data file that holds a budget"))
                << result.errors.toStdString();
            EXPECT_EQ(bytes(mFile), kSmallBudget);
            EXPECT_EQ(bytes(own), kSmallBudget);
        }
    }
    EXPECT_EQ(shell("\"$CORVELLA\" check --data own >>own").status, 1);
    EXPECT_EQ(shell("\"$CORVELLA\" sets --data own >>own").status, 1);
    EXPECT_EQ(bytes(mFile), kSmallBudget);
}

TEST_F(CommandLineProgram, TakesTheStandardStreamsAndPipes) {
    for (const char* const arguments : {"--data - <own", "--data own --output -", "--data /dev/stdin <own",
                                        "--data <(cat own)", "--data own --output /dev/stdout | cat"}) {
        SCOPED_TRACE(arguments);
        const Result result = shell(QStringLiteral("\"$CORVELLA\" export %1").arg(arguments));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, kExportedLine);
        EXPECT_EQ(result.errors, "");
    }
    EXPECT_EQ(shell("cat own | \"$CORVELLA\" export --data -").output, kExportedLine);
    EXPECT_EQ(shell("mkfifo pipe; cat own >pipe & \"$CORVELLA\" export --data pipe").output, kExportedLine);
    EXPECT_TRUE(shell("\"$CORVELLA\" report tax --data own --output - | head -c 5").output.startsWith("%PDF-"));
    EXPECT_EQ(shell("cat own | \"$CORVELLA\" check --data -").output.count('\n'), 4);
}

TEST_F(CommandLineProgram, SaysInOneLineWhyStandardInputHoldsNoBudget) {
    for (const char* const input : {"<&-", "</dev/null", "< <(echo short)", "< <(head -c 300 own)"}) {
        SCOPED_TRACE(input);
        const Result result = shell(QStringLiteral("\"$CORVELLA\" check --data - %1").arg(input));
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(isOneLine(result.errors)) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains("standard input could not be read: ")) << result.errors.toStdString();
    }
}

/// With a closed stream, a file that is opened next gets the stream's number; no message for the stream may be written
/// into the file.
TEST_F(CommandLineProgram, WritesNoRemarkIntoAFileWhereStreamsAreClosed) {
    const Result result = shell("\"$CORVELLA\" export --data own --output it <&- >&- 2>&-");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(QString::fromUtf8(bytes(mHome.filePath("it"))), kExportedLine);
    EXPECT_EQ(bytes(mFile), kSmallBudget);
}

TEST_F(CommandLineProgram, HelpsWithEachCommand) {
    for (const char* const command : {"check", "sets", "export", "report"}) {
        for (const char* const option : {"--help", "-h"}) {
            const Result result = run({command, option});
            EXPECT_EQ(result.status, 0) << command;
            EXPECT_TRUE(result.output.startsWith(QStringLiteral("Usage: corvella %1").arg(command)));
            EXPECT_EQ(result.errors, "");
        }
    }
}

TEST_F(CommandLineProgram, RefusesBeforeItLooksForADisplay) {
    struct Row {
        QStringList arguments;
        int status;
        const char* reason;
    };
    const QList<Row> rows{
        {{"--nonsense"}, 2, "there is no option \"--nonsense\""},
        {{"-x"}, 2, "there is no option \"-x\""},
        {{"--data", "own"}, 2, "there is no option \"--data\""},
        {{"exprot"}, 2, "\"exprot\" is not opened"},
        {{mFile}, 2, "is not opened"},
        {{"one", "two"}, 2, "\"one\", \"two\" are not opened"},
        {{}, 1, "there is no display"},
        {{"-platform", "xcb"}, 1, "there is no display"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.arguments.join(' ').toStdString());
        const Result result = run(row.arguments);
        EXPECT_EQ(result.status, row.status);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.startsWith("corvella: ")) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.section('\n', 0, 0).contains(row.reason)) << result.errors.toStdString();
    }
}

TEST_F(CommandLineProgram, SaysInOneLineThatTheDisplayDoesNotAnswer) {
    struct Row {
        QStringList arguments;
        int status;
        const char* reason;
    };
    const QList<Row> rows{
        {{"exprot"}, 2, "\"exprot\" is not opened"},
        {{mFile}, 2, "is not opened"},
        {{}, 1, "the display to show your budget on does not answer"},
        {{"-platform", "xcb"}, 1, "does not answer"},
        {{"-platform", "nonsense"}, 1, "does not answer"},
    };
    // Each variable names a display without a server.
    for (const char* const variable : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        mEnvironment.clear();
        mEnvironment.insert(variable, ":4077");
        for (const Row& row : rows) {
            SCOPED_TRACE(row.arguments.join(' ').toStdString() + ' ' + variable);
            const Result result = run(row.arguments);
            EXPECT_EQ(result.status, row.status);
            EXPECT_TRUE(isOneLine(result.errors)) << result.errors.toStdString();
            EXPECT_TRUE(result.errors.contains(row.reason)) << result.errors.toStdString();
        }
    }
}

/// A locale that the toolkit warns about, and no folder for runtime files.
TEST_F(CommandLineProgram, KeepsTheRemarksOfTheToolkitToItself) {
    for (const char* const command :
         {"export --data own", "check --data own", "report tax --data own --output it.pdf", "sets --data own"}) {
        const Result result = shell(QStringLiteral("LC_ALL=C LANG=C \"$CORVELLA\" %1").arg(command));
        EXPECT_EQ(result.status, 0) << command;
        EXPECT_EQ(result.errors, "") << command;
    }
    EXPECT_EQ(shell("LC_ALL=C \"$CORVELLA\" check --data missing").errors.count('\n'), 1);
}

TEST_F(CommandLineProgram, ADataFileThatIsAwayIsNamedAndNoOtherIsTakenForIt) {
    const QString folder = "data/Quenby Labs/Corvella/";
    const QString other = write(folder + "Corvella Data.corvella", kSmallBudget);
    static_cast<void>(
        write(folder + "Earlier Versions/Corvella Data 2026-11-22 140207 (hourly).corvella", kSmallBudget));
    const QString away = mHome.filePath("stick/Corvella Data.corvella");
    static_cast<void>(
        write("config/Quenby Labs/Corvella.conf", "[General]\nData%20File%20Location=" + away.toUtf8() + '\n'));
    const QStringList before = everything();
    struct Row {
        QStringList arguments;
        int status;
    };
    for (const auto& [arguments, status] : {Row{{"check"}, 1}, Row{{"sets"}, 1}, Row{{"export"}, 1},
                                            Row{{"report", "tax"}, 1}, Row{{"versions"}, 1}, Row{{"diff", other}, 2}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, status) << arguments.constFirst().toStdString();
        EXPECT_EQ(result.output, "") << arguments.constFirst().toStdString();
        EXPECT_TRUE(result.errors.contains('"' + away + '"')) << result.errors.toStdString();
        EXPECT_EQ(result.errors.count('\n'), 1) << result.errors.toStdString();
    }
    EXPECT_EQ(run({"check", "--data", other}).status, 0);
    EXPECT_EQ(run({"diff", other, other}).status, 0);
    EXPECT_EQ(everything(), before) << "nothing is stored";
}

} // namespace
