#include "merging/CVBothSidesText.h"

#include "budget/CVLabelOfFrequency.h"
#include "contents/CVTransactionText.h"
#include "differences/CVMergeBudgets.h"
#include "format/QBLocale.h"
#include "format/QBMoneyFormatter.h"
#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "model/CVTransactionSet.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

struct BothSidesText {
    Q_DECLARE_TR_FUNCTIONS(CVBothSidesText)
};

constexpr qsizetype kMostNamed = 3;

/// The first few names, and how many there are beside them.
QString some(const QStringList& names) {
    QString named = names.mid(0, kMostNamed).join(BothSidesText::tr("; "));
    const auto others = static_cast<int>(names.size() - kMostNamed);
    if (others <= 0)
        return named;
    return BothSidesText::tr("%1 and %2 more", nullptr, others).arg(named, QBLocaleInForce().toString(others));
}

/// "3/7/14 Market" and, of both, what is not the same.
QString nameOf(const CVTransaction& ours, const CVTransaction& theirs) {
    const CVTransactionText text;
    QString name = text.string(ours, CVTransactionColumns::Date);
    if (const QString payTo = text.string(ours, CVTransactionColumns::ToFrom); !payTo.isEmpty())
        name += u' ' + payTo;
    for (int column = 0; column < CVTransactionColumns::ColumnCount; ++column) {
        const QString here = text.string(ours, column);
        const QString there = text.string(theirs, column);
        if (here != there)
            return BothSidesText::tr("%1 (here %2, there %3)", "a line and what it says on both sides")
                .arg(name, BothSidesText::tr("“%1”").arg(here), BothSidesText::tr("“%1”").arg(there));
    }
    return name;
}

QString planOf(const CVCategory& category) {
    return BothSidesText::tr("%1 %2", "an amount and how often")
        .arg(QBMoneyFormatter().string(category.expenseTarget()), CVLabelOfFrequency(category.expenseFrequency()));
}

QString nameOf(const CVCategory& ours, const CVCategory& theirs) {
    if (ours.categoryName() != theirs.categoryName())
        return BothSidesText::tr("category “%1” (there “%2”)").arg(ours.categoryName(), theirs.categoryName());
    return BothSidesText::tr("the plan of “%1” (there %2)").arg(ours.categoryName(), planOf(theirs));
}

QString nameOf(const CVTransactionSet& ours, const CVTransactionSet& theirs) {
    return BothSidesText::tr("set “%1” (there “%2”)").arg(ours.transactionSetName(), theirs.transactionSetName());
}

template <typename Record>
QStringList namesOf(const std::vector<CVTwoChanges<Record>>& changes) {
    QStringList names;
    for (const auto& [ours, theirs] : changes)
        names.append(nameOf(*ours, *theirs));
    return names;
}

} // namespace

QString CVBothSidesText(const CVMergedBudget& merged, CVCommonKnown common) {
    QStringList sentences;
    if (const QStringList lines = namesOf(merged.transactions); !lines.isEmpty())
        sentences.append(
            BothSidesText::tr("Changed on both sides, so bringing in leaves both lines: %1.").arg(some(lines)));
    const QStringList records = namesOf(merged.sets) + namesOf(merged.categories);
    if (common == CVCommonKnown::Unknown)
        sentences.append(BothSidesText::tr("Which side has changed a line is not known, so nothing of yours is removed "
                                           "or replaced."));
    if (common == CVCommonKnown::Imported)
        sentences.append(BothSidesText::tr("Nothing of yours is removed or replaced."));
    if (!records.isEmpty())
        sentences.append((common == CVCommonKnown::Known
                              ? BothSidesText::tr("Changed on both sides, and yours stays: %1.")
                              : BothSidesText::tr("Not the same there, and yours stays: %1."))
                             .arg(some(records)));
    return sentences.join(u'\n');
}
