#include "app/CVCommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CVCommandLine", text);
}

CVCommandLine refuse(const QString& problem) {
    return {.action = CVCommandLine::Action::Refuse, .problem = problem};
}

CVCommandLine parseCheck(const QStringList& arguments) {
    QCommandLineParser parser;
    const QCommandLineOption data(QStringLiteral("data"), QString(), QStringLiteral("FILE"));
    parser.addOption(data);
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return refuse(tr("check takes no argument \"%1\"").arg(parser.positionalArguments().constFirst()));
    CVCommandLine line{.action = CVCommandLine::Action::Check};
    if (parser.isSet(data))
        line.dataFile = parser.value(data);
    if (line.dataFile && line.dataFile->isEmpty())
        return refuse(tr("--data needs the name of a file"));
    return line;
}

CVCommandLine parseExport(const QStringList& arguments) {
    QString problem;
    const auto request = CVExportRequest::parse(arguments, problem);
    return request ? CVCommandLine{.action = CVCommandLine::Action::Export, .exportRequest = *request}
                   : refuse(problem);
}

CVCommandLine parseReport(const QStringList& arguments) {
    QString problem;
    const auto request = CVReportRequest::parse(arguments, problem);
    return request ? CVCommandLine{.action = CVCommandLine::Action::Report, .reportRequest = *request}
                   : refuse(problem);
}

} // namespace

CVCommandLine CVCommandLine::parse(const QStringList& arguments) {
    const QStringList rest = arguments.mid(1);
    if (!rest.isEmpty() && rest.constFirst() == QLatin1String("check"))
        return parseCheck(rest);
    if (!rest.isEmpty() && rest.constFirst() == QLatin1String("export"))
        return parseExport(rest);
    if (!rest.isEmpty() && rest.constFirst() == QLatin1String("report"))
        return parseReport(rest);
    if (rest.contains(QLatin1String("--version")) || rest.contains(QLatin1String("-v")))
        return {.action = Action::ShowVersion};
    if (rest.contains(QLatin1String("--help")) || rest.contains(QLatin1String("-h")))
        return {.action = Action::ShowHelp};
    return {};
}

QString CVCommandLine::usage() {
    return tr("Usage: corvella                        open your budget\n"
              "       corvella check [--data FILE]    say what a data file holds\n"
              "       corvella export [OPTION...]     write transactions as tab-separated text\n"
              "       corvella report KIND [OPTION...]\n"
              "                                       write a report as a PDF file or as text\n"
              "       corvella --version | --help\n"
              "\n"
              "check, export and report show no window, read your own data file where --data names no other,\n"
              "and write nothing but their output. They end with status 0, or with status 1 and a line that\n"
              "says what failed.\n"
              "\n"
              "Options of export and report:\n"
              "  --range N                     0 all (as without it), 1 this year and last, 2 last year,\n"
              "                                3 this year, 4 last month, 5 this month, 6 last week, 7 this week\n"
              "  --from YYYY/MM/DD --to YYYY/MM/DD\n"
              "                                these days and those between, in place of --range\n"
              "  --set NAME                    the transaction set; otherwise the file's current one\n"
              "  --data FILE                   the data file\n"
              "  --today YYYY/MM/DD            the day that --range counts from\n"
              "  --output FILE                 otherwise standard output\n"
              "\n"
              "Options of export alone:\n"
              "  --search KIND:TEXT            0 all text fields, 1 paid to, 2 for, 3 category, 4 tax,\n"
              "                                5 user flag, 6 amount greater than, 7 equal to, 8 less than\n"
              "  --sort COLUMN[:descending]    date, amount, tofrom, for, category, tax or userflag;\n"
              "                                otherwise date:descending\n"
              "\n"
              "KIND is transactions, averages, plan, percent, tax or summary. With --output the report is a\n"
              "PDF file, otherwise text with a tabulator between columns. Options of report alone:\n"
              "  --period PERIOD               of the summary: day (as without it), week, two-weeks or month\n"
              "  --paper a4|letter             otherwise what is usual where you live\n");
}
