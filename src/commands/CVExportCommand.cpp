#include "commands/CVExportCommand.h"

#include "base/CVDefaultsKeys.h"
#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "contents/CVTransactionList.h"
#include "contents/CVTransactionSearch.h"
#include "model/CVTransactionColumns.h"

#include <QCoreApplication>

#include <array>

namespace {

struct ExportCommandText {
    Q_DECLARE_TR_FUNCTIONS(CVExportCommand)
};

constexpr QLatin1StringView kAllSets("all-sets");

struct FormatName {
    QLatin1StringView name;
    CVExportFormat format = {};
};

constexpr std::array<FormatName, 3> kFormatNames{{{QLatin1StringView("tsv"), CVExportFormat::List},
                                                  {QLatin1StringView("csv"), CVExportFormat::CSV},
                                                  {QLatin1StringView("json"), CVExportFormat::JSON}}};

QString readFormat(const QString& value, CVExportRequest& request) {
    for (const FormatName& each : kFormatNames) {
        if (value == each.name) {
            request.format = each.format;
            return {};
        }
    }
    return ExportCommandText::tr("--format takes tsv, csv or json, not \"%1\"").arg(value);
}

QString readSearch(const QString& value, CVExportRequest& request) {
    const auto colon = value.indexOf(':');
    bool isNumber = false;
    request.searchKind = value.left(colon).toInt(&isNumber);
    request.searchText = value.mid(colon + 1);
    const bool isKind = colon > 0 && isNumber && !CVTitleOfSearchKind(request.searchKind).isEmpty();
    return isKind ? QString()
                  : ExportCommandText::tr(
                        "--search takes the number of a kind, 0 to 8, a colon and the text, as in 1:market");
}

QString readSort(const QString& value, CVExportRequest& request) {
    const QStringList parts = value.split(':');
    request.sortColumn = parts.constFirst();
    request.descending = parts.size() > 1;
    const bool isOrder = parts.size() == 1 || (parts.size() == 2 && parts.at(1) == QLatin1String("descending"));
    const int column = CVTransactionColumns::columnOfIdentifier(request.sortColumn);
    return isOrder && column >= 0 && column < CVTransactionColumns::ColumnCount
               ? QString()
               : ExportCommandText::tr(
                     "--sort takes date, amount, tofrom, for, category, tax or userflag, and :descending behind it");
}

constexpr std::array<CVOption<CVExportRequest>, 3> kExportOptions{
    {{"search", readSearch}, {"sort", readSort}, {"format", readFormat}}};

void fill(CVTransactionList& list, const CVDocument& document, const CVExportRequest& request) {
    request.chooseRange(list, document);
    list.setShownSets(request.allSets ? CVShownSets::All : CVShownSets::Current);
    list.setSearchType(request.searchKind);
    list.setSearchText(request.searchText);
    list.collectTransactions();
    list.rebuild();
}

QString readArguments(const QStringList& arguments, CVExportRequest& request) {
    QCommandLineParser parser;
    CVBudgetOptions::declare(parser);
    CVDeclareOptions<CVExportRequest>(parser, kExportOptions);
    parser.addOption(QCommandLineOption(kAllSets));
    if (!parser.parse(arguments))
        return parser.errorText();
    request.help = CVDataOptions::asksForHelp(parser);
    if (request.help)
        return {};
    if (!parser.positionalArguments().isEmpty())
        return ExportCommandText::tr("export takes no argument \"%1\"").arg(parser.positionalArguments().constFirst());
    request.allSets = parser.isSet(kAllSets);
    QString problem = request.read(parser);
    if (problem.isEmpty() && request.allSets && request.set)
        problem = ExportCommandText::tr("give either --set or --all-sets");
    return problem.isEmpty() ? CVReadOptions<CVExportRequest>(parser, kExportOptions, request) : problem;
}

} // namespace

std::optional<CVExportRequest> CVExportRequest::parse(const QStringList& arguments, QString& problem) {
    CVExportRequest request;
    problem = readArguments(arguments, request);
    return problem.isEmpty() ? std::optional(request) : std::nullopt;
}

int CVRunExport(const CVExportRequest& request, QTextStream& errors) {
    CVReadOnlyBudget budget;
    if (!request.open(budget, errors))
        return 1;
    budget.userDefaults().setString(CVDefaultsKeys::kTransactionSortColumn, request.sortColumn);
    budget.userDefaults().setInteger(CVDefaultsKeys::kTransactionSortOrder, request.descending ? 1 : 0);
    CVTransactionList list(budget.document());
    fill(list, budget.document(), request);
    const auto text = CVMakeExport(request.format, budget.document(), list.displayTransactions());
    if (request.writesToStandardOutput())
        return CVStandardStreams::write(*text, budget.dataFiles(), errors);
    return request.tellOutcome(CVWriteExport(*request.output, *text, budget.dataFiles()), errors);
}
