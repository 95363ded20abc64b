#include "commands/CVBudgetOptions.h"

#include "budget/CVRangePresets.h"
#include "commands/CVDaysOfText.h"
#include "commands/CVErrorLine.h"
#include "commands/CVReadOnlyBudget.h"
#include "commands/CVStandardStreams.h"
#include "contents/CVTransactionList.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <algorithm>
#include <array>

namespace {

/// The preset of the list when days are given.
constexpr int kNoPreset = -1;

struct BudgetOptionsText {
    Q_DECLARE_TR_FUNCTIONS(CVBudgetOptions)
};

/// Reads the value of the option `name`; `days` stays as it is when the value is not understood.
QString readDays(const QString& value, const char* name, const CVBudgetOptions& options,
                 std::optional<CVDayRange>& days) {
    const auto found = CVDaysOfText(value, options.today.value_or(QBDate::date()));
    if (!found) {
        return BudgetOptionsText::tr(
                   "%1 takes a day, a month or a year, as in 2014-01-31, 2014-01, 2014 or today, not \"%2\"")
            .arg(QLatin1String(name), value);
    }
    days = found;
    return {};
}

QString readRange(const QString& value, CVBudgetOptions& options) {
    bool isNumber = false;
    const int preset = value.toInt(&isNumber);
    if (isNumber && preset >= 0 && preset < kCVRangePresets) {
        options.preset = preset;
        return {};
    }
    const auto days = CVDaysOfText(value, options.today.value_or(QBDate::date()));
    if (!days)
        return BudgetOptionsText::tr(
            "--range takes a number from 0 to 7, or a day, a month or a year as in 2014-01-31, 2014-01 or 2014");
    options.from = days->start;
    options.to = days->end;
    return {};
}

QString readFrom(const QString& value, CVBudgetOptions& options) {
    std::optional<CVDayRange> days;
    QString problem = readDays(value, "--from", options, days);
    if (days)
        options.from = days->start;
    return problem;
}

QString readTo(const QString& value, CVBudgetOptions& options) {
    std::optional<CVDayRange> days;
    QString problem = readDays(value, "--to", options, days);
    if (days)
        options.to = days->end;
    return problem;
}

QString readToday(const QString& value, CVBudgetOptions& options) {
    const auto days = CVDaysOfText(value, QBDate::date());
    if (!days || days->start != days->end)
        return BudgetOptionsText::tr("--today takes a day, as in 2014-01-31, not \"%1\"").arg(value);
    options.today = days->start;
    return {};
}

QString readSet(const QString& value, CVBudgetOptions& options) {
    options.set = value;
    return {};
}

QString readOutput(const QString& value, CVBudgetOptions& options) {
    options.output = value;
    return value.isEmpty() ? BudgetOptionsText::tr("--output needs the name of a file") : QString();
}

/// "today" is read first, because other values count from it.
constexpr std::array<CVOption<CVBudgetOptions>, 6> kRangeOptions{{{"today", readToday},
                                                                  {"range", readRange},
                                                                  {"from", readFrom},
                                                                  {"to", readTo},
                                                                  {"set", readSet},
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

void CVBudgetOptions::declare(QCommandLineParser& parser) {
    CVDataOptions::declare(parser);
    CVDeclareOptions<CVBudgetOptions>(parser, kRangeOptions);
}

QString CVBudgetOptions::read(const QCommandLineParser& parser) {
    const bool hasDays = parser.isSet(QStringLiteral("from")) || parser.isSet(QStringLiteral("to"));
    if (hasDays && parser.isSet(QStringLiteral("range")))
        return BudgetOptionsText::tr("give either --range or --from and --to");
    QString problem = CVDataOptions::read(parser);
    if (problem.isEmpty())
        problem = CVReadOptions<CVBudgetOptions>(parser, kRangeOptions, *this);
    if (problem.isEmpty() && from && to && to->comesBefore(*from))
        return BudgetOptionsText::tr("--from lies after --to");
    return problem;
}

bool CVBudgetOptions::open(CVReadOnlyBudget& budget, QTextStream& errors) const {
    if (today)
        QBDate::setToday(today);
    if (!budget.readAndSort(dataFile, errors))
        return false;
    if (!set || selectSet(budget.document(), *set))
        return true;
    fail(errors, BudgetOptionsText::tr("there is no transaction set \"%1\"; corvella sets lists them").arg(*set));
    return false;
}

std::optional<CVDayRange> CVBudgetOptions::days(const CVDocument& document) const {
    const auto all = rangeOfPreset(0, QBDate::date(), document);
    if (!all || (!from && !to))
        return std::nullopt;
    const QBDate start = from.value_or(to ? std::min(all->start, *to) : all->start);
    return CVDayRange{start, to.value_or(std::max(all->end, start))};
}

void CVBudgetOptions::chooseRange(CVTransactionList& list, const CVDocument& document) const {
    const auto range = days(document);
    list.setTransactionPeriod(range ? kNoPreset : preset);
    list.setRangeFromPreset(QBDate::date());
    if (range)
        list.setRange(*range);
}

bool CVBudgetOptions::writesToStandardOutput() const {
    return !output || *output == QLatin1String(CVStandardStreams::kName);
}

int CVBudgetOptions::tellOutcome(const std::optional<QString>& failure, QTextStream& errors) const {
    if (!failure)
        return 0;
    return fail(errors, BudgetOptionsText::tr("\"%1\" could not be written: %2")
                            .arg(QDir::toNativeSeparators(output.value_or(QString())), *failure));
}

int CVBudgetOptions::fail(QTextStream& errors, const QString& message) {
    CVWriteErrorLine(errors, message);
    return 1;
}
