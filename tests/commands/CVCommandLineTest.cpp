#include "commands/CVCommandLine.h"

#include "commands/CVUsageText.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

using Action = CVCommandLine::Action;

struct Row {
    QStringList arguments;
    Action action;
    std::optional<QString> dataFile = {};
};

const QList<Row> kRows{
    {{}, Action::OpenWindow},
    {{"--version"}, Action::ShowVersion},
    {{"-v"}, Action::ShowVersion},
    {{"--help"}, Action::ShowHelp},
    {{"-h"}, Action::ShowHelp},
    {{"--version", "--data", "x"}, Action::Refuse},
    {{"exprot", "--help"}, Action::Refuse},
    {{"check"}, Action::Check},
    {{"check", "--data", "a b.corvella"}, Action::Check, "a b.corvella"},
    {{"check", "--data=x"}, Action::Check, "x"},
    {{"check", "--data"}, Action::Refuse},
    {{"check", "--data", ""}, Action::Refuse},
    {{"check", "x"}, Action::Refuse},
    {{"check", "--unknown"}, Action::Refuse},
    {{"export"}, Action::Export},
    {{"export", "--range", "3"}, Action::Export},
    {{"export", "--range", "9"}, Action::Refuse},
    {{"report"}, Action::Refuse},
    {{"report", "tax"}, Action::Report},
    {{"report", "--range", "3", "tax"}, Action::Report},
    {{"report", "tax", "--range", "9"}, Action::Refuse},
    {{"check", "--data", "-"}, Action::Check, "-"},
    {{"check", "--data", "x", "--data", "y"}, Action::Refuse},
    {{"check", "--help"}, Action::ShowHelp},
    {{"check", "-h"}, Action::ShowHelp},
    {{"versions"}, Action::Versions},
    {{"versions", "--data", "x"}, Action::Versions, "x"},
    {{"versions", "--data", "-"}, Action::Refuse, "-"},
    {{"versions", "x"}, Action::Refuse},
    {{"versions", "-h"}, Action::ShowHelp},
    {{"sets"}, Action::Sets},
    {{"sets", "--data", "x"}, Action::Sets, "x"},
    {{"sets", "x"}, Action::Refuse},
    {{"sets", "-h"}, Action::ShowHelp},
    {{"export", "--help"}, Action::ShowHelp},
    {{"export", "-h", "--range", "9"}, Action::ShowHelp},
    {{"export", "--nonsense", "--help"}, Action::Refuse},
    {{"report", "--help"}, Action::ShowHelp},
    {{"report", "tax", "-h"}, Action::ShowHelp},
    // Options of the toolkit are passed on; unknown options are refused before the toolkit looks for a display.
    {{"-platform", "offscreen"}, Action::OpenWindow},
    {{"--platform", "offscreen", "-reverse", "-style=fusion"}, Action::OpenWindow},
    {{"-style", "--nonsense"}, Action::OpenWindow},
    {{"-platform"}, Action::Refuse},
    {{"--nonsense"}, Action::Refuse},
    {{"-x"}, Action::Refuse},
    {{"--range", "3"}, Action::Refuse},
    {{"some file"}, Action::OpenWindow},
    {{"some file", "--nonsense"}, Action::Refuse},
};

TEST(CVCommandLine, TellsWhatIsAskedFor) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.arguments.join(' ').toStdString());
        const CVCommandLine line = CVCommandLine::parse(QStringList{"corvella"} + row.arguments);
        EXPECT_EQ(line.action, row.action);
        EXPECT_EQ(line.dataFile, row.dataFile);
        EXPECT_EQ(line.problem.isEmpty(), row.action != Action::Refuse);
    }
}

TEST(CVCommandLine, RemembersTheCommandAndEveryFile) {
    EXPECT_EQ(CVCommandLine::parse({"corvella", "export", "--nonsense"}).command, "export");
    EXPECT_EQ(CVCommandLine::parse({"corvella", "report", "-h"}).command, "report");
    EXPECT_EQ(CVCommandLine::parse({"corvella", "--help"}).command, "");
    EXPECT_EQ(CVCommandLine::parse({"corvella", "-style", "x", "some file"}).files, QStringList{"some file"});
    EXPECT_EQ(CVCommandLine::parse({"corvella", "a", "-style", "x", "b"}).files, (QStringList{"a", "b"}));
    EXPECT_EQ(CVCommandLine::parse({"corvella", "-style", "x"}).files, QStringList());
}

TEST(CVCommandLine, UsageOfACommandNamesItsOptionsAndNoOthers) {
    struct Usage {
        const char* command;
        QStringList names;
        QStringList others;
    };
    const QList<Usage> usages{
        {"check", {"corvella check", "--data"}, {"--range", "KIND"}},
        {"versions", {"corvella versions", "--data"}, {"--range", "KIND"}},
        {"sets", {"corvella sets", "--data"}, {"--range", "KIND"}},
        {"export",
         {"corvella export", "--data", "--range", "--sort", "--search", "--format", "--all-sets"},
         {"--paper", "--period"}},
        {"report", {"corvella report KIND", "--data", "--range", "--paper", "--period"}, {"--sort", "--search"}},
    };
    for (const Usage& usage : usages) {
        const QString text = CVUsageText(usage.command);
        for (const QString& name : usage.names)
            EXPECT_TRUE(text.contains(name)) << usage.command << ' ' << name.toStdString();
        for (const QString& other : usage.others)
            EXPECT_FALSE(text.contains(other)) << usage.command << ' ' << other.toStdString();
        EXPECT_TRUE(text.contains("status is 0") && text.contains("and 2 when")) << usage.command;
    }
}

TEST(CVCommandLine, UsageSaysWhatTheDayThatIsTodayCountsFor) {
    for (const char* const command : {"export", "report"}) {
        const QString text = CVUsageText(command).simplified();
        EXPECT_TRUE(text.contains("days that are written out are the same on any day")) << command;
    }
}

TEST(CVCommandLine, UsageNamesEveryCommandAndOption) {
    const QString usage = CVUsageText();
    for (const char* const word :
         {"check", "sets", "export", "report KIND", "--period", "--paper", "--data FILE", "--range", "--from", "--to",
          "--set", "--search", "--sort", "--format", "--all-sets", "--today", "--output", "--version", "--help"})
        EXPECT_TRUE(usage.contains(word)) << word;
}

} // namespace
