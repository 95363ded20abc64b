#include "commands/CVImportCommand.h"

#include "commands/CVErrorLine.h"
#include "commands/CVStandardStreams.h"
#include "importing/statements/CVReadStatement.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <array>
#include <cstdlib>

namespace {

struct ImportCommandText {
    Q_DECLARE_TR_FUNCTIONS(CVImportCommand)
};

constexpr QLatin1StringView kDryRun("dry-run");
constexpr QLatin1StringView kSigned("signed");
constexpr QLatin1StringView kSkipUnreadable("skip-unreadable");

QString readImportSet(const QString& value, CVImportRequest& request) {
    request.set = value;
    return value.isEmpty() ? ImportCommandText::tr("--set needs the name of a transaction set") : QString();
}

QString readIncomeSet(const QString& value, CVImportRequest& request) {
    request.income = CVImportRequest::Income::OwnSet;
    request.incomeSet = value;
    return value.isEmpty() ? ImportCommandText::tr("--income-set needs the name of a transaction set") : QString();
}

QString readIncome(const QString& value, CVImportRequest& request) {
    if (value != QLatin1String("same") && value != QLatin1String("none"))
        return ImportCommandText::tr("--income takes same or none");
    request.income =
        value == QLatin1String("none") ? CVImportRequest::Income::LeftOut : CVImportRequest::Income::SameSet;
    return {};
}

QString readMappingName(const QString& value, CVImportRequest& request) {
    request.mappingName = value;
    return value.isEmpty() ? ImportCommandText::tr("--mapping needs the name of a mapping") : QString();
}

constexpr std::array<CVOption<CVImportRequest>, 4> kImportOptions{
    {{"set", readImportSet}, {"income-set", readIncomeSet}, {"income", readIncome}, {"mapping", readMappingName}}};

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
        return ImportCommandText::tr("import needs one statement");
    request.file = parser.positionalArguments().constFirst();
    QString problem = request.CVDataOptions::read(parser);
    if (problem.isEmpty())
        problem = CVReadOptions<CVImportRequest>(parser, kImportOptions, request);
    if (problem.isEmpty())
        problem = request.statement.read(parser);
    if (!problem.isEmpty())
        return problem;
    if (request.set.isEmpty())
        return ImportCommandText::tr("import needs --set with the name of a transaction set");
    if (parser.isSet("income") && parser.isSet("income-set"))
        return ImportCommandText::tr("give either --income or --income-set");
    return request.isSigned && !request.dryRun ? ImportCommandText::tr("--signed goes with --dry-run") : QString();
}

/// The bytes of the statement; absent after one line on `errors`.
std::optional<QByteArray> readStatementFile(const QString& name, QTextStream& errors) {
    const bool isInput = name == QLatin1String(CVStandardStreams::kName);
    QFile file(isInput ? QString::fromLatin1(CVStandardStreams::kInputPath) : name);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.read(kCVLargestStatement + 1);
    if (file.isOpen() && file.error() == QFileDevice::NoError)
        return bytes;
    CVWriteErrorLine(
        errors,
        ImportCommandText::tr("\"%1\" could not be read: %2").arg(QDir::toNativeSeparators(name), file.errorString()));
    return std::nullopt;
}

/// A text of a window in the form of the command line.
QString straight(QString text) {
    return text.replace(u'“', u'"').replace(u'”', u'"');
}

QString questionWithOptions(const CVStatementQuestion& question) {
    QStringList options;
    for (const auto& answer : question.answers)
        options.append(answer.option + u' ' + u'(' + answer.label + u')');
    return ImportCommandText::tr("%1 Answer with %2").arg(question.text, options.join(ImportCommandText::tr(" or ")));
}

/// A cell of comma-separated text.
QString cellOfText(QString text) {
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r'))
        return text;
    return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString amountOfText(qint64 hundredths) {
    constexpr int kDecimalBase = 10;
    const qint64 size = std::abs(hundredths);
    return QStringLiteral("%1%2.%3")
        .arg(hundredths < 0 ? QStringLiteral("-") : QString())
        .arg(size / 100)
        .arg(size % 100, 2, kDecimalBase, QLatin1Char('0'));
}

QString dayOfText(const QBDate& day) {
    return QString::fromLatin1(day.corvellaXMLRepresentation()).replace(u'/', u'-');
}

QString rowOfText(const CVStatementLine& line, bool isSigned) {
    const QString note =
        line.unreadable.isEmpty()
            ? QString()
            : ImportCommandText::tr("line %1 cannot be read: %2").arg(line.number).arg(straight(line.unreadable));
    const bool hasAmount = line.hundredths && line.unreadable.isEmpty();
    const QStringList cells{line.day ? dayOfText(*line.day) : QString(),
                            hasAmount ? amountOfText(isSigned ? *line.hundredths : -*line.hundredths) : QString(),
                            line.payee,
                            line.purpose,
                            line.category,
                            QString(),
                            note};
    QStringList quoted;
    for (const QString& cell : cells)
        quoted.append(cellOfText(cell));
    return quoted.join(u',') + u'\n';
}

int writeDryRun(const CVStatement& statement, const CVImportRequest& request, QTextStream& errors) {
    QString text = QStringLiteral("date,amount,payee,for,category,sure,note\n");
    int unreadable = 0;
    for (const CVStatementLine& line : statement.lines) {
        text += rowOfText(line, request.isSigned);
        unreadable += line.unreadable.isEmpty() ? 0 : 1;
    }
    const int status = CVStandardStreams::write(text.toUtf8(), {}, errors);
    if (status != 0 || unreadable == 0 || request.skipUnreadable)
        return status;
    CVWriteErrorLine(errors, unreadable == 1 ? ImportCommandText::tr("1 line could not be read")
                                             : ImportCommandText::tr("%1 lines could not be read").arg(unreadable));
    return 1;
}

} // namespace

std::optional<CVImportRequest> CVImportRequest::parse(const QStringList& arguments, QString& problem) {
    CVImportRequest request;
    problem = readImportArguments(arguments, request);
    return problem.isEmpty() ? std::optional(request) : std::nullopt;
}

int CVRunImport(const CVImportRequest& request, QTextStream& errors) {
    const auto bytes = readStatementFile(request.file, errors);
    if (!bytes)
        return 1;
    const CVStatement statement = CVReadStatement(*bytes, request.statement.mapping);
    if (!statement.problem.isEmpty()) {
        CVWriteErrorLine(errors, straight(statement.problem));
        return 1;
    }
    if (!statement.questions.empty()) {
        QStringList questions;
        for (const auto& question : statement.questions)
            questions.append(straight(questionWithOptions(question)));
        CVWriteErrorLine(errors, questions.join(QStringLiteral("; ")));
        return 1;
    }
    if (request.dryRun)
        return writeDryRun(statement, request, errors);
    CVWriteErrorLine(errors, ImportCommandText::tr("only --dry-run is there yet"));
    return 1;
}
