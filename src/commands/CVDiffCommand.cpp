#include "commands/CVDiffCommand.h"

#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "commands/CVVersionsCommand.h"
#include "contents/CVDifferenceLines.h"
#include "differences/CVBudgetDifferences.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

constexpr int kSame = 0;
constexpr int kDifferent = 1;
constexpr int kTrouble = 2;
constexpr qsizetype kMostFiles = 2;

struct DiffCommandText {
    Q_DECLARE_TR_FUNCTIONS(CVDiffCommand)
};

std::optional<QString> later(const CVDiffRequest& request) {
    return request.after ? std::optional(CVFindVersionNamed(*request.after)) : std::nullopt;
}

} // namespace

std::optional<CVDiffRequest> CVDiffRequest::parse(const QStringList& arguments, QString& problem) {
    QCommandLineParser parser;
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    parser.addOption(help);
    if (!parser.parse(arguments)) {
        problem = parser.errorText();
        return std::nullopt;
    }
    if (parser.isSet(help))
        return CVDiffRequest{.help = true};
    const QStringList files = parser.positionalArguments();
    const QString input = QString::fromLatin1(CVStandardStreams::kName);
    if (files.isEmpty())
        problem = DiffCommandText::tr("diff needs the earlier data file, and the later one where that is not your own");
    else if (files.size() > kMostFiles)
        problem = DiffCommandText::tr("diff compares two data files; \"%1\" is one too many").arg(files[kMostFiles]);
    else if (files.contains(QString()))
        problem = DiffCommandText::tr("the name of a data file is empty");
    else if (files.count(input) == kMostFiles)
        problem = DiffCommandText::tr("only one of the data files can be standard input");
    if (!problem.isEmpty())
        return std::nullopt;
    return CVDiffRequest{.before = files.constFirst(),
                         .after = files.size() == kMostFiles ? std::optional(files.constLast()) : std::nullopt};
}

int CVRunDiff(const CVDiffRequest& request, QTextStream& errors) {
    CVReadOnlyBudget before;
    CVReadOnlyBudget after;
    before.needBudget();
    after.needBudget();
    if (!before.read(CVFindVersionNamed(request.before), errors) || !after.read(later(request), errors))
        return kTrouble;
    const auto differences = CVBudgetDifferences::since(before.document(), after.document());
    QByteArray text;
    for (const QString& line : CVMakeDifferenceLines(differences))
        text += line.toUtf8() + '\n';
    if (CVStandardStreams::write(text, before.dataFiles() + after.dataFiles(), errors) != 0)
        return kTrouble;
    return differences.isEmpty() ? kSame : kDifferent;
}
