#include "app/CVCommandLine.h"

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
    // Options of the toolkit, and files, are looked at once the toolkit has taken what is its own.
    {{"-platform", "offscreen"}, Action::OpenWindow},
    {{"some file"}, Action::OpenWindow},
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

TEST(CVCommandLine, UsageNamesEveryCommandAndOption) {
    const QString usage = CVCommandLine::usage();
    for (const char* const word :
         {"check", "export", "report KIND", "--period", "--paper", "--data FILE", "--range", "--from", "--to", "--set",
          "--search", "--sort", "--today", "--output", "--version", "--help"})
        EXPECT_TRUE(usage.contains(word)) << word;
}

} // namespace
