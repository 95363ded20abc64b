#include "app/CVExportCommand.h"

#include "app/CVReadOnlyBudget.h"
#include "model/CVTransactionSet.h"
#include "shared/base/CVDefaultsKeys.h"
#include "workspace/CVTransactionExport.h"
#include "workspace/CVTransactionList.h"
#include "workspace/CVTransactionSearch.h"
#include "workspace/CVTransactionTableModel.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include <cstdio>

namespace {

constexpr int kPresets = 8;
constexpr int kNoPreset = -1;

QString tr(const char* text) {
    return QCoreApplication::translate("CVExportCommand", text);
}

/// Takes the value of one option into the request; a sentence when it cannot be understood.
using Reader = QString (*)(const QString& value, CVExportRequest& request);

QString readPreset(const QString& value, CVExportRequest& request) {
    bool isNumber = false;
    request.preset = value.toInt(&isNumber);
    return isNumber && request.preset >= 0 && request.preset < kPresets ? QString()
                                                                        : tr("--range takes a number from 0 to 7");
}

QString readDay(const QString& value, const char* option, QBDate& day) {
    const auto date = QBDate::optimizedDateWithCStringXMLFormat(value.toStdString());
    if (!date)
        return tr("%1 takes a day as YYYY/MM/DD, not \"%2\"").arg(QLatin1String(option), value);
    day = *date;
    return {};
}

QString readFrom(const QString& value, CVExportRequest& request) {
    return readDay(value, "--from", request.range->start);
}

QString readTo(const QString& value, CVExportRequest& request) {
    return readDay(value, "--to", request.range->end);
}

QString readToday(const QString& value, CVExportRequest& request) {
    request.today = QBDate::date();
    return readDay(value, "--today", *request.today);
}

QString readSet(const QString& value, CVExportRequest& request) {
    request.set = value;
    return {};
}

QString readSearch(const QString& value, CVExportRequest& request) {
    const auto colon = value.indexOf(':');
    bool isNumber = false;
    request.searchKind = value.left(colon).toInt(&isNumber);
    request.searchText = value.mid(colon + 1);
    const bool isKind = colon > 0 && isNumber && !CVSearchKindTitle(request.searchKind).isEmpty();
    return isKind ? QString() : tr("--search takes the number of a kind, 0 to 8, a colon and the text, as in 1:market");
}

QString readSort(const QString& value, CVExportRequest& request) {
    const QStringList parts = value.split(':');
    request.sortColumn = parts.constFirst();
    request.descending = parts.size() > 1;
    const bool isOrder = parts.size() == 1 || (parts.size() == 2 && parts.at(1) == QLatin1String("descending"));
    return isOrder && CVTransactionTableModel::columnOfIdentifier(request.sortColumn) >= 0
               ? QString()
               : tr("--sort takes date, amount, tofrom, for, category, tax or userflag, and :descending behind it");
}

QString readData(const QString& value, CVExportRequest& request) {
    request.dataFile = value;
    return value.isEmpty() ? tr("--data needs the name of a file") : QString();
}

QString readOutput(const QString& value, CVExportRequest& request) {
    request.output = value;
    return value.isEmpty() ? tr("--output needs the name of a file") : QString();
}

struct Option {
    const char* name;
    Reader read;
};

constexpr std::array<Option, 9> kOptions{{{"range", readPreset},
                                          {"from", readFrom},
                                          {"to", readTo},
                                          {"set", readSet},
                                          {"search", readSearch},
                                          {"sort", readSort},
                                          {"data", readData},
                                          {"today", readToday},
                                          {"output", readOutput}}};

/// What is wrong with the options as a whole.
QString combinationProblem(const QCommandLineParser& parser) {
    if (!parser.positionalArguments().isEmpty())
        return tr("export takes no argument \"%1\"").arg(parser.positionalArguments().constFirst());
    if (parser.isSet(QStringLiteral("from")) != parser.isSet(QStringLiteral("to")))
        return tr("--from and --to go together");
    if (parser.isSet(QStringLiteral("from")) && parser.isSet(QStringLiteral("range")))
        return tr("give either --range or --from and --to");
    return {};
}

int fail(QTextStream& errors, const QString& message) {
    errors << "corvella: " << message << Qt::endl;
    return 1;
}

/// Makes the set of that name the current one; false when there is none.
bool selectSet(CVDocument& document, const QString& name) {
    for (const auto& set : document.transactionSets()) {
        if (set->transactionSetName() == name) {
            document.setCurrentTransactionSet(set->uniqueID());
            return true;
        }
    }
    return false;
}

void fill(CVTransactionList& list, const CVExportRequest& request, const QBDate& today) {
    list.setTransactionPeriod(request.range ? kNoPreset : request.preset);
    list.setRangeFromPreset(today);
    if (request.range)
        list.setRange(*request.range);
    list.setSearchType(request.searchKind);
    list.setSearchText(request.searchText);
    list.collectTransactions();
    list.getTransactions();
    list.filterTransactions();
    list.doUserSort();
}

int write(const QByteArray& text, const std::optional<QString>& output, QTextStream& errors) {
    if (output) {
        const auto failure = CVWriteExport(*output, text);
        return failure ? fail(errors,
                              tr("\"%1\" could not be written: %2").arg(QDir::toNativeSeparators(*output), *failure))
                       : 0;
    }
    QFile standardOutput;
    const bool written = standardOutput.open(stdout, QIODevice::WriteOnly) &&
                         standardOutput.write(text) == text.size() && standardOutput.flush();
    return written ? 0 : fail(errors, tr("standard output could not be written: %1").arg(standardOutput.errorString()));
}

} // namespace

std::optional<CVExportRequest> CVExportRequest::parse(const QStringList& arguments, QString& problem) {
    QCommandLineParser parser;
    for (const Option& option : kOptions)
        parser.addOption({QLatin1String(option.name), QString(), QStringLiteral("VALUE")});
    problem = parser.parse(arguments) ? combinationProblem(parser) : parser.errorText();
    CVExportRequest request;
    if (parser.isSet(QStringLiteral("from")))
        request.range = CVDayRange{QBDate::date(), QBDate::date()};
    for (const Option& option : kOptions) {
        if (problem.isEmpty() && parser.isSet(QLatin1String(option.name)))
            problem = option.read(parser.value(QLatin1String(option.name)), request);
    }
    return problem.isEmpty() ? std::optional(request) : std::nullopt;
}

int CVRunExport(const CVExportRequest& request, QTextStream& errors) {
    if (request.today)
        QBDate::setToday(request.today);
    CVReadOnlyBudget budget;
    if (!budget.read(request.dataFile, errors))
        return 1;
    if (request.set && !selectSet(budget.document(), *request.set))
        return fail(errors, tr("there is no transaction set \"%1\"").arg(*request.set));
    budget.userDefaults().setString(CVDefaultsKeys::kTransactionSortColumn, request.sortColumn);
    budget.userDefaults().setInteger(CVDefaultsKeys::kTransactionSortOrder, request.descending ? 1 : 0);
    CVTransactionList list(budget.document());
    fill(list, request, QBDate::date());
    return write(CVExportedTransactions(list.displayTransactions()).value(), request.output, errors);
}
