#include "kit/Printers.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the real program, as a script would: no display, a home of its own.

namespace {

constexpr const char* kBudget = R"(<?xml version="1.0" encoding="UTF-8"?>
<CorvellaDocument os="Mac OS X" app="com.quenbylabs.corvella" app_version="1.0.0">
 <MiscInfo id="40" current_transaction_set_id="27" />
<TransactionSet id="27">Checking</TransactionSet><Transaction categoryID="12" flag="0" tax_flag="1" transaction_set_id="27"><Data date="2014/03/07" amount="45.10" /><PayToFrom>Dr. Lee &amp; Sons</PayToFrom><For>Checkup</For></Transaction>
<Category id="12">Medical<ExpenseEstimates frequency="Monthly" target="50.00" /></Category></CorvellaDocument>
)";

struct Result {
    int status;
    QString output;
    QString errors;
};

class CheckProgram : public testing::Test {
protected:
    CheckProgram() { QDir().mkpath(mHome.path()); }

    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const {
        const QString path = mHome.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path;
    }

    [[nodiscard]] Result run(const QStringList& arguments) const {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", mHome.path());
        environment.insert("XDG_DATA_HOME", mHome.filePath("data"));
        environment.insert("XDG_CONFIG_HOME", mHome.filePath("config"));
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(name);
        program.setProcessEnvironment(environment);
        program.start(CORVELLA_PROGRAM, arguments);
        EXPECT_TRUE(program.waitForFinished(60'000));
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
                QString::fromUtf8(program.readAllStandardError())};
    }

    /// Everything below the home, files with their sizes.
    [[nodiscard]] QStringList everything() const {
        QStringList names;
        QStringList folders{mHome.path()};
        while (!folders.isEmpty()) {
            for (const QFileInfo& entry :
                 QDir(folders.takeFirst())
                     .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
                names.append(entry.filePath() + ' ' + QString::number(entry.isDir() ? 0 : entry.size()));
                if (entry.isDir())
                    folders.append(entry.filePath());
            }
        }
        names.sort();
        return names;
    }

    QTemporaryDir mHome{QDir::tempPath() + "/a home XXXXXX"};
};

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
