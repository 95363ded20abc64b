#include "importing/budgets/CVOtherBudget.h"

#include "format/QBLocale.h"
#include "importing/statements/CVStatementSummary.h"
#include "model/CVTransaction.h"
#include "storage/CVDocumentReader.h"

#include <QStringList>

#include <algorithm>
#include <new>

namespace {

struct BudgetSummaryText {
    Q_DECLARE_TR_FUNCTIONS(CVOtherBudget)
};

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

CVOtherBudget readDataFile(CVDocumentReader& reader, const QString& path) {
    CVOtherBudget other;
    const auto budget = std::make_shared<CVDetachedDocument>();
    const CVLoadReport report = reader.readFromURL(**budget, path);
    if (report.outcome != CVLoadReport::Outcome::Loaded) {
        other.problem = report.reason.isEmpty() ? BudgetSummaryText::tr("it holds no budget that Corvella can read")
                                                : report.reason;
        return other;
    }
    other.budget = budget;
    other.partly = report.partly;
    other.summary = summaryOfBudget(BudgetSummaryText::tr("A Corvella budget"), **budget);
    return other;
}

} // namespace

CVOtherBudget CVOtherBudget::read(CVDocumentReader& reader, const QString& path) {
    try {
        return readDataFile(reader, path);
    } catch (const std::bad_alloc&) {
        CVOtherBudget none;
        none.problem = tooLittleMemory();
        return none;
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
