#include "app/CVBudgetOptions.h"

#include "app/CVErrorLine.h"
#include "app/CVReadOnlyBudget.h"
#include "budget/CVRangePresets.h"
#include "model/CVTransactionSet.h"
#include "workspace/CVTransactionList.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include <array>
#include <cstdio>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CVBudgetOptions", text);
}

QString readPreset(const QString& value, CVBudgetOptions& options) {
    bool isNumber = false;
    options.preset = value.toInt(&isNumber);
    return isNumber && options.preset >= 0 && options.preset < kCVRangePresets
               ? QString()
               : tr("--range takes a number from 0 to 7");
}

QString readDay(const QString& value, const char* option, QBDate& day) {
    const auto date = QBDate::optimizedDateWithCStringXMLFormat(value.toStdString());
    if (!date)
        return tr("%1 takes a day as YYYY/MM/DD, not \"%2\"").arg(QLatin1String(option), value);
    day = *date;
    return {};
}

QString readFrom(const QString& value, CVBudgetOptions& options) {
    return readDay(value, "--from", options.range->start);
}

QString readTo(const QString& value, CVBudgetOptions& options) {
    return readDay(value, "--to", options.range->end);
}

QString readToday(const QString& value, CVBudgetOptions& options) {
    options.today = QBDate::date();
    return readDay(value, "--today", *options.today);
}

QString readSet(const QString& value, CVBudgetOptions& options) {
    options.set = value;
    return {};
}

QString readData(const QString& value, CVBudgetOptions& options) {
    options.dataFile = value;
    return value.isEmpty() ? tr("--data needs the name of a file") : QString();
}

QString readOutput(const QString& value, CVBudgetOptions& options) {
    options.output = value;
    return value.isEmpty() ? tr("--output needs the name of a file") : QString();
}

constexpr std::array<CVOption<CVBudgetOptions>, 7> kOptions{{{"range", readPreset},
                                                             {"from", readFrom},
                                                             {"to", readTo},
                                                             {"set", readSet},
                                                             {"data", readData},
                                                             {"today", readToday},
                                                             {"output", readOutput}}};

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

} // namespace

std::span<const CVOption<CVBudgetOptions>> CVBudgetOptions::options() {
    return kOptions;
}

QString CVBudgetOptions::read(const QCommandLineParser& parser) {
    const bool hasRange = parser.isSet(QStringLiteral("from"));
    if (hasRange != parser.isSet(QStringLiteral("to")))
        return tr("--from and --to go together");
    if (hasRange && parser.isSet(QStringLiteral("range")))
        return tr("give either --range or --from and --to");
    if (hasRange) {
        preset = kNoPreset;
        range = CVDayRange{QBDate::date(), QBDate::date()};
    }
    QString problem = CVReadOptions(parser, options(), *this);
    if (problem.isEmpty() && range && range->end.comesBefore(range->start))
        return tr("--from lies after --to");
    return problem;
}

bool CVBudgetOptions::open(CVReadOnlyBudget& budget, QTextStream& errors) const {
    if (today)
        QBDate::setToday(today);
    if (!budget.read(dataFile, errors))
        return false;
    if (!set || selectSet(budget.document(), *set))
        return true;
    fail(errors, tr("there is no transaction set \"%1\"").arg(*set));
    return false;
}

void CVBudgetOptions::chooseRange(CVTransactionList& list) const {
    list.setTransactionPeriod(preset);
    list.setRangeFromPreset(QBDate::date());
    if (range)
        list.setRange(*range);
}

int CVBudgetOptions::writeToStandardOutput(const QByteArray& text, QTextStream& errors) {
    QFile standardOutput;
    const bool written = standardOutput.open(stdout, QIODevice::WriteOnly) &&
                         standardOutput.write(text) == text.size() && standardOutput.flush();
    return written ? 0 : fail(errors, tr("standard output could not be written: %1").arg(standardOutput.errorString()));
}

int CVBudgetOptions::outputWritten(const std::optional<QString>& failure, QTextStream& errors) const {
    if (!failure)
        return 0;
    return fail(
        errors,
        tr("\"%1\" could not be written: %2").arg(QDir::toNativeSeparators(output.value_or(QString())), *failure));
}

int CVBudgetOptions::fail(QTextStream& errors, const QString& message) {
    CVWriteErrorLine(errors, message);
    return 1;
}
