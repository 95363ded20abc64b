#include "importing/budgets/CVOtherBudget.h"

#include "format/QBLocale.h"
#include "importing/budgets/CVBudgetFileKind.h"
#include "importing/statements/CVStatementSummary.h"
#include "model/CVTransaction.h"
#include "storage/CVDocumentReader.h"
#include "transfer/CVReadTransfer.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <new>

namespace {

struct BudgetSummaryText {
    Q_DECLARE_TR_FUNCTIONS(CVOtherBudget)
};

/// In bytes. The text is held as a whole, unlike a data file.
constexpr qint64 kLargestTransfer = qint64{512} * 1024 * 1024;

QString periodOfBudget(const CVDocument& budget) {
    std::optional<QBDate> first;
    std::optional<QBDate> last;
    for (const auto& transaction : budget.transactions()) {
        const auto day = transaction->effectiveDate();
        if (!day)
            continue;
        first = first ? std::min(*first, *day) : *day;
        last = last ? std::max(*last, *day) : *day;
    }
    return first ? CVPeriodInWords(*first, *last) : QString();
}

/// `what` names the kind of file. A budget without sets has the transactions alone.
QString summaryOfBudget(const QString& what, const CVDocument& budget) {
    const QLocale locale = QBLocaleInForce();
    const auto sets = static_cast<int>(budget.countOfTransactionSets());
    const auto count = static_cast<int>(budget.transactions().size());
    QStringList parts{what};
    if (sets > 0)
        parts.append(sets == 1 ? BudgetSummaryText::tr("1 set")
                               : BudgetSummaryText::tr("%1 sets", nullptr, sets).arg(locale.toString(sets)));
    parts.append(count == 1 ? BudgetSummaryText::tr("1 transaction")
                            : BudgetSummaryText::tr("%1 transactions", nullptr, count).arg(locale.toString(count)));
    if (const QString period = periodOfBudget(budget); !period.isEmpty())
        parts.append(period);
    return parts.join(BudgetSummaryText::tr(", "));
}

CVOtherBudget unread(const QString& problem) {
    CVOtherBudget other;
    other.problem = problem.isEmpty() ? BudgetSummaryText::tr("it holds no budget that Corvella can read") : problem;
    return other;
}

CVOtherBudget readDataFile(CVDocumentReader& reader, QIODevice& file) {
    CVOtherBudget other;
    const auto budget = std::make_shared<CVDetachedDocument>();
    const CVLoadReport report = reader.readFromOpenFile(**budget, file);
    if (report.outcome != CVLoadReport::Outcome::Loaded)
        return unread(report.reason);
    other.budget = budget;
    other.partly = report.partly;
    other.summary = summaryOfBudget(BudgetSummaryText::tr("A Corvella budget"), **budget);
    return other;
}

CVOtherBudget readTransfer(QIODevice& file) {
    const QByteArray bytes = file.read(kLargestTransfer + 1);
    if (const auto* const device = qobject_cast<QFileDevice*>(&file); device && device->error() != QFileDevice::NoError)
        return unread(device->errorString());
    if (bytes.size() > kLargestTransfer)
        return unread(BudgetSummaryText::tr("it is larger than 512 MiB"));
    const CVTransferredBudget transferred = CVReadTransfer(bytes);
    if (!transferred.budget)
        return unread(transferred.problem);
    CVOtherBudget other;
    other.budget = transferred.budget;
    other.plans = CVPlansOfOther::Unknown;
    other.summary = summaryOfBudget(BudgetSummaryText::tr("Transactions exported by Corvella"), **other.budget);
    return other;
}

} // namespace

CVOtherBudget CVOtherBudget::read(CVDocumentReader& reader, const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? read(reader, file) : unread(file.errorString());
}

CVOtherBudget CVOtherBudget::read(CVDocumentReader& reader, QIODevice& file) {
    try {
        return CVKindOfBudgetFile(file.peek(kCVTellingBytes)) == CVBudgetFileKind::Transfer
                   ? readTransfer(file)
                   : readDataFile(reader, file);
    } catch (const std::bad_alloc&) {
        return unread(tooLittleMemory());
    }
}

QString CVOtherBudget::partlyText() const {
    if (partly.count == 0)
        return {};
    const QString first = partly.lines.value(0);
    return partly.count == 1 ? tr("1 place of that file was not understood, or only in part: %1").arg(first)
                             : tr("%1 places of that file were not understood, or only in part; the first: %2")
                                   .arg(QBLocaleInForce().toString(partly.count), first);
}
