#include "commands/CVImportRequest.h"

#include "commands/CVStandardStreams.h"

#include <QCoreApplication>

#include <array>

namespace {

struct ImportRequestText {
    Q_DECLARE_TR_FUNCTIONS(CVImportRequest)
};

constexpr QLatin1StringView kDryRun("dry-run");
constexpr QLatin1StringView kSigned("signed");
constexpr QLatin1StringView kSkipUnreadable("skip-unreadable");

QString readImportSet(const QString& value, CVImportRequest& request) {
    request.set = value;
    return value.isEmpty() ? ImportRequestText::tr("--set needs the name of a transaction set") : QString();
}

QString readIncomeSet(const QString& value, CVImportRequest& request) {
    request.income = CVImportRequest::Income::OwnSet;
    request.incomeSet = value;
    return value.isEmpty() ? ImportRequestText::tr("--income-set needs the name of a transaction set") : QString();
}

QString readIncome(const QString& value, CVImportRequest& request) {
    if (value != QLatin1String("same") && value != QLatin1String("none"))
        return ImportRequestText::tr("--income takes same or none");
    request.income =
        value == QLatin1String("none") ? CVImportRequest::Income::LeftOut : CVImportRequest::Income::SameSet;
    return {};
}

QString readMappingName(const QString& value, CVImportRequest& request) {
    request.mappingName = value;
    return value.isEmpty() ? ImportRequestText::tr("--mapping needs the name of a mapping") : QString();
}

QString readCategoryForRest(const QString& value, CVImportRequest& request) {
    request.categoryForRest = value.trimmed();
    return request.categoryForRest.isEmpty() ? ImportRequestText::tr("--category-for-rest needs the name of a category")
                                             : QString();
}

constexpr std::array<CVOption<CVImportRequest>, 5> kImportOptions{{{"set", readImportSet},
                                                                   {"income-set", readIncomeSet},
                                                                   {"income", readIncome},
                                                                   {"mapping", readMappingName},
                                                                   {"category-for-rest", readCategoryForRest}}};

/// What two options that are understood by themselves say against each other.
QString contradiction(const QCommandLineParser& parser, const CVImportRequest& request) {
    const QString input = QLatin1String(CVStandardStreams::kName);
    if (parser.isSet("income") && parser.isSet("income-set"))
        return ImportRequestText::tr("give either --income or --income-set");
    if (!request.set.isEmpty() && request.incomeSet == request.set)
        return ImportRequestText::tr("--income-set names the set of --set; --income same puts all into one set");
    if (request.mappingName && request.statement.mapping != CVStatementMapping())
        return ImportRequestText::tr("give either --mapping or options that say how the statement is read");
    if (request.dataFile == input && !request.dryRun)
        return ImportRequestText::tr("nothing is recorded in standard input; --data needs the name of a file");
    if (request.dataFile == input && request.file == input)
        return ImportRequestText::tr("the statement and the data file cannot both be standard input");
    return request.isSigned && !request.dryRun ? ImportRequestText::tr("--signed goes with --dry-run") : QString();
}

/// In the order in which they were given.
QStringList optionsOfStatement(const QCommandLineParser& parser) {
    QStringList names = parser.optionNames();
    names.removeAll(QStringLiteral("data"));
    names.removeAll(kDryRun);
    return names;
}

QString readImportArguments(const QStringList& arguments, CVImportRequest& request) {
    QCommandLineParser parser;
    CVDataOptions::declare(parser);
    CVStatementOptions::declare(parser);
    CVDeclareOptions<CVImportRequest>(parser, kImportOptions);
    for (const auto flag : {kDryRun, kSigned, kSkipUnreadable})
        parser.addOption(QCommandLineOption(flag));
    if (!parser.parse(arguments))
        return parser.errorText();
    request.help = CVDataOptions::asksForHelp(parser);
    if (request.help)
        return {};
    request.dryRun = parser.isSet(kDryRun);
    request.isSigned = parser.isSet(kSigned);
    request.skipUnreadable = parser.isSet(kSkipUnreadable);
    if (parser.positionalArguments().size() != 1)
        return ImportRequestText::tr("import needs one statement or budget");
    request.file = parser.positionalArguments().constFirst();
    request.optionsOfStatement = optionsOfStatement(parser);
    QString problem = request.CVDataOptions::read(parser);
    if (problem.isEmpty())
        problem = CVReadOptions<CVImportRequest>(parser, kImportOptions, request);
    if (problem.isEmpty())
        problem = request.statement.read(parser);
    return problem.isEmpty() ? contradiction(parser, request) : problem;
}

} // namespace

std::optional<CVImportRequest> CVImportRequest::parse(const QStringList& arguments, QString& problem) {
    CVImportRequest request;
    problem = readImportArguments(arguments, request);
    return problem.isEmpty() ? std::optional(request) : std::nullopt;
}
