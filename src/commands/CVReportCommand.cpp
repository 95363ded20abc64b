#include "commands/CVReportCommand.h"

#include "base/CVDefaultsKeys.h"
#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "contents/CVBudgetContents.h"
#include "contents/CVTransactionExport.h"
#include "format/QBLocale.h"
#include "reports/CVDataOfReport.h"
#include "reports/CVMakeReport.h"
#include "reports/CVReportFile.h"
#include "reports/CVReportView.h"
#include "reports/CVTextOfReport.h"

#include <QCoreApplication>

#include <unistd.h>

#include <algorithm>
#include <array>

namespace {

struct ReportCommandText {
    Q_DECLARE_TR_FUNCTIONS(CVReportCommand)
};

/// A word of the command line and its meaning.
template <typename Value>
struct Word {
    const char* word;
    Value value;
};

constexpr std::array<Word<CVReportType>, kReportTypes> kKinds{{{"transactions", CVReportType::Transactions},
                                                               {"averages", CVReportType::CategoryAverages},
                                                               {"plan", CVReportType::CategoryTotals},
                                                               {"percent", CVReportType::CategoryPercents},
                                                               {"tax", CVReportType::CategoryTax},
                                                               {"summary", CVReportType::Summary}}};
constexpr std::array<Word<int>, CVDisplayPeriods::kTypes> kPeriods{{{"day", CVDisplayPeriods::Day},
                                                                    {"week", CVDisplayPeriods::Week},
                                                                    {"two-weeks", CVDisplayPeriods::TwoWeeks},
                                                                    {"month", CVDisplayPeriods::Month}}};
constexpr std::array<Word<QPageSize::PageSizeId>, 2> kPapers{{{"a4", QPageSize::A4}, {"letter", QPageSize::Letter}}};
constexpr std::array<Word<CVReportFormat>, 2> kReportFormats{
    {{"csv", CVReportFormat::CSV}, {"json", CVReportFormat::JSON}}};

template <typename Words>
auto meaningOf(const QString& text, const Words& words) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [&text](const auto& word) { return text == QLatin1String(word.word); });
    return found == words.end() ? std::nullopt : std::optional(found->value);
}

QString readPeriod(const QString& value, CVReportRequest& request) {
    const auto period = meaningOf(value, kPeriods);
    request.periodType = period.value_or(CVDisplayPeriods::Day);
    return period ? QString() : ReportCommandText::tr("--period takes day, week, two-weeks or month");
}

QString readPaper(const QString& value, CVReportRequest& request) {
    request.paper = meaningOf(value, kPapers);
    return request.paper ? QString() : ReportCommandText::tr("--paper takes a4 or letter");
}

QString readReportFormat(const QString& value, CVReportRequest& request) {
    const auto format = meaningOf(value, kReportFormats);
    request.format = format.value_or(CVReportFormat::AsPrinted);
    return format ? QString() : ReportCommandText::tr("--format takes csv or json, not \"%1\"").arg(value);
}

constexpr std::array<CVOption<CVReportRequest>, 3> kReportOptions{
    {{"period", readPeriod}, {"paper", readPaper}, {"format", readReportFormat}}};

QString readKind(const QStringList& arguments, CVReportRequest& request) {
    if (arguments.size() > 1)
        return ReportCommandText::tr("report takes no argument \"%1\"").arg(arguments.at(1));
    const auto type = arguments.isEmpty() ? std::nullopt : meaningOf(arguments.constFirst(), kKinds);
    request.type = type.value_or(CVReportType::Transactions);
    return type ? QString()
                : ReportCommandText::tr("report takes transactions, averages, plan, percent, tax or summary");
}

/// Refuses an option that would change nothing in this report, because the user expects an effect; empty when there is
/// none.
QString refuseIdleOption(const QCommandLineParser& parser, CVReportType type) {
    const bool isSummary = type == CVReportType::Summary;
    for (const char* const option : {"range", "to"}) {
        if (isSummary && parser.isSet(QLatin1String(option)))
            return ReportCommandText::tr(
                       "the summary takes no --%1: --from says where it begins, --period how long its columns are")
                .arg(QLatin1String(option));
    }
    if (!isSummary && parser.isSet(QStringLiteral("period")))
        return ReportCommandText::tr("--period is an option of the summary alone");
    const bool isPDF = parser.isSet(QStringLiteral("output")) && !parser.isSet(QStringLiteral("format"));
    if (parser.isSet(QStringLiteral("paper")) && !isPDF)
        return ReportCommandText::tr("--paper is an option of PDF files alone, which --output without --format makes");
    return {};
}

QString readArguments(const QStringList& arguments, CVReportRequest& request) {
    QCommandLineParser parser;
    CVBudgetOptions::declare(parser);
    CVDeclareOptions<CVReportRequest>(parser, kReportOptions);
    if (!parser.parse(arguments))
        return parser.errorText();
    request.help = CVDataOptions::asksForHelp(parser);
    if (request.help)
        return {};
    QString problem = readKind(parser.positionalArguments(), request);
    if (problem.isEmpty())
        problem = refuseIdleOption(parser, request.type);
    if (problem.isEmpty())
        problem = request.read(parser);
    return problem.isEmpty() ? CVReadOptions<CVReportRequest>(parser, kReportOptions, request) : problem;
}

/// Lists and computes the data that the window has when it prints, for the given days and periods, with the newest
/// transactions first. The given range applies to the list when the list is printed; otherwise it applies to the
/// reports, and the list holds the whole set.
void fill(CVBudgetContents& contents, const CVDocument& document, const CVReportRequest& request) {
    if (request.type == CVReportType::Transactions) {
        request.chooseRange(contents.list(), document);
    } else {
        contents.reports().setReportPeriod(request.preset);
        contents.setRangesFromPresets();
        if (const auto days = request.days(document))
            contents.reports().setRange(*days);
    }
    contents.list().collectTransactions();
    contents.list().rebuild();
    if (request.type == CVReportType::Summary) {
        if (request.from)
            contents.grid().periods().goToDay(*request.from);
        contents.reloadGrid();
    } else if (request.type != CVReportType::Transactions) {
        contents.reloadReports();
    }
}

int writePDF(std::unique_ptr<const CVReport> report, const CVReportRequest& request, const QStringList& spared,
             QTextStream& errors) {
    CVPrintInfo printInfo = CVPrintInfo::ofLocale(QBLocaleInForce());
    if (request.paper)
        printInfo.paper = QPageSize(*request.paper);
    const CVReportView view(std::move(report), printInfo);
    const CVPageRange pages = CVPageRange::all(view);
    if (request.writesToStandardOutput())
        return CVStandardStreams::tellOutcome(CVWriteReport(STDOUT_FILENO, view, pages, spared), errors);
    return request.tellOutcome(CVWriteReportFile(*request.output, view, pages, {}, spared), errors);
}

int writeData(const CVReport& report, const CVReportRequest& request, const QStringList& spared, QTextStream& errors) {
    const QByteArray text = request.format == CVReportFormat::CSV ? CVCSVOfReport(report) : CVJSONOfReport(report);
    if (request.writesToStandardOutput())
        return CVStandardStreams::write(text, spared, errors);
    return request.tellOutcome(CVWriteExport(*request.output, text, spared), errors);
}

} // namespace

std::optional<CVReportRequest> CVReportRequest::parse(const QStringList& arguments, QString& problem) {
    CVReportRequest request;
    problem = readArguments(arguments, request);
    return problem.isEmpty() ? std::optional(request) : std::nullopt;
}

int CVRunReport(const CVReportRequest& request, QTextStream& errors) {
    CVReadOnlyBudget budget;
    if (!request.open(budget, errors))
        return 1;
    budget.userDefaults().setString(CVDefaultsKeys::kTransactionSortColumn, QStringLiteral("date"));
    budget.userDefaults().setInteger(CVDefaultsKeys::kTransactionSortOrder, 1);
    CVBudgetContents contents(budget.document(), QBDate::date(), request.periodType);
    fill(contents, budget.document(), request);
    CVMadeReport made = CVMakeReport(request.type, contents);
    if (!made.report)
        return CVBudgetOptions::fail(errors, made.refusal);
    const QStringList spared = budget.dataFiles();
    if (request.format != CVReportFormat::AsPrinted)
        return writeData(*made.report, request, spared, errors);
    return request.output ? writePDF(std::move(made.report), request, spared, errors)
                          : CVStandardStreams::write(CVTextOfReport(*made.report), spared, errors);
}
