#include "ProgramFixture.h"

namespace {

constexpr const char* kBudget = R"(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="27" />
<TransactionSet id="27">Checking</TransactionSet><Transaction categoryID="12" flag="0" tax_flag="1" transaction_set_id="27"><Data date="2014/03/07" amount="45.10" /><PayToFrom>Dr. Lee &amp; Sons</PayToFrom><For>Checkup</For></Transaction>
<Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category></CorvellaDocument>
)";

class CheckProgram : public ProgramFixture {};

TEST_F(CheckProgram, PrintsFourLinesForAGivenFile) {
    const Result result = run({"check", "--data", write("budget.corvella", kBudget)});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "transactions: 1\ncategories: 1\ntransaction sets: 1\ncurrent set: 27\n");
    EXPECT_EQ(result.errors, "");
}

TEST_F(CheckProgram, ReadsTheStandardFileWithoutOptions) {
    (void)write("data/Quenby Labs/Corvella/Corvella Data.corvella", kBudget);
    const Result result = run({"check"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.startsWith("transactions: 1\n")) << result.output.toStdString();
}

TEST_F(CheckProgram, WritesNothingAnywhere) {
    (void)write("data/Quenby Labs/Corvella/Corvella Data.corvella", kBudget);
    const QString damaged = write("damaged.corvella", QByteArray(kBudget).replace("</For>", "</Fro>"));
    const QStringList before = everything();
    EXPECT_EQ(run({"check"}).status, 0);
    EXPECT_EQ(run({"check", "--data", damaged}).status, 1);
    EXPECT_EQ(everything(), before);
}

TEST_F(CheckProgram, RefusesWithOneLineThatSaysWhy) {
    const QByteArray encrypted = QByteArray("<EncryptedData><Salt>") + QByteArray(100, 'x');
    struct Row {
        QString file;
        const char* reason;
    };
    const QList<Row> rows{
        {mHome.filePath("missing"), "does not exist"},
        {mHome.path(), "is not a file"},
        {"/dev/null", "shorter than 64 bytes"},
        {write("unknown encoding", "<?xml version=\"1.0\" encoding=\"nonsense\"?>" + QByteArray(100, ' ')), "line 1"},
        {write("unconvertible",
               "<?xml version=\"1.0\" encoding=\"EUC-JP\"?><CorvellaDocument>\xff\xfe" + QByteArray(100, '0')),
         "line 1"},
        {write("wrong encoding", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + QByteArray(kBudget).mid(38)), ""},
        {write("empty", ""), "shorter than 64 bytes"},
        {write("short", "<CorvellaDocument></CorvellaDocument>"), "shorter than 64 bytes"},
        {write("encrypted", encrypted), "encrypted"},
        {write("damaged", QByteArray(kBudget).replace("</For>", "</Fro>")), "line 4"},
        {write("cut", QByteArray(kBudget).left(300)), "line 4"},
        {write("garbage", QByteArray(200, '\x01')), "line 1"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.file.toStdString());
        const Result result = run({"check", "--data", row.file});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.startsWith("corvella: ")) << result.errors.toStdString();
        EXPECT_TRUE(result.errors.contains(row.reason)) << result.errors.toStdString();
        EXPECT_EQ(result.errors.count('\n'), 1) << result.errors.toStdString();
    }
}

TEST_F(CheckProgram, SaysThatThereIsNoFileYet) {
    const Result result = run({"check"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains("no data file")) << result.errors.toStdString();
}

TEST_F(CheckProgram, NotesThatXmlOfAnotherKindHoldsNoBudget) {
    const QByteArray page = "<?xml version=\"1.0\"?>\n<html>" + QByteArray(100, ' ') + "</html>\n";
    const Result result = run({"check", "--data", write("page.html", page)});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "transactions: 0\ncategories: 0\ntransaction sets: 0\ncurrent set: 0\n");
    EXPECT_TRUE(result.errors.contains("no Corvella budget")) << result.errors.toStdString();
}

TEST_F(CheckProgram, NotesWhatWasNotUnderstoodAndStillSucceeds) {
    const Result one = run({"check", "--data", write("one", QByteArray(kBudget).replace("45.10", "45,10"))});
    EXPECT_EQ(one.status, 0);
    EXPECT_TRUE(one.output.startsWith("transactions: 1\n")) << one.output.toStdString();
    EXPECT_EQ(one.errors, "corvella: note: 1 place was not understood, or only in part: Line 4: amount=\"45,10\" was "
                          "not understood as a whole.\n");
    const Result two =
        run({"check", "--data", write("two", QByteArray(kBudget).replace("45.10", "45,10").replace("2014/", "2014-"))});
    EXPECT_EQ(two.status, 0);
    EXPECT_EQ(two.errors, "corvella: note: 2 places were not understood, or only in part; the first: Line 4: "
                          "date=\"2014-03/07\" was not understood as a whole.\n");
}

TEST_F(CheckProgram, AnswersVersionAndHelpWithoutADisplay) {
    EXPECT_EQ(run({"--version"}).output, "Corvella " CORVELLA_VERSION "\n");
    EXPECT_TRUE(run({"--help"}).output.startsWith("Usage: corvella"));
}

TEST_F(CheckProgram, RefusesUnknownArgumentsWithUsage) {
    const Result result = run({"check", "--nonsense"});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("Usage: corvella")) << result.errors.toStdString();
}

} // namespace
