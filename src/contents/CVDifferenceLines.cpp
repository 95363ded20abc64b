#include "contents/CVDifferenceLines.h"

#include "differences/CVBudgetDifferences.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVExpenseFrequency.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>

namespace {

constexpr QLatin1StringView kChange(" => ");
const QString kMark = QStringLiteral("X");

QString plain(double amount) {
    return QString::number(amount, 'f', 2);
}

QStringList fieldsOf(const CVTransactionSet& set) {
    return {set.transactionSetName()};
}

/// The name and the plan.
QStringList fieldsOf(const CVCategory& category) {
    const std::string_view frequency = CVExpenseFrequency::nameOfCode(category.expenseFrequency());
    return {category.categoryName(),
            plain(category.expenseTarget()) + u' ' +
                QString::fromLatin1(frequency.data(), static_cast<qsizetype>(frequency.size()))};
}

/// Empty for transactions without a set.
QString nameOfSet(const CVTransaction& transaction) {
    const auto& sets = transaction.document()->transactionSets();
    const auto set = std::find_if(sets.begin(), sets.end(), [&transaction](const auto& candidate) {
        return candidate->uniqueID() == transaction.transactionSetID();
    });
    return set == sets.end() ? QString() : (*set)->transactionSetName();
}

QStringList fieldsOf(const CVTransaction& transaction) {
    const auto date = transaction.effectiveDate();
    const QString day = date ? QString::fromLatin1(date->corvellaXMLRepresentation()).replace(u'/', u'-') : QString();
    return {nameOfSet(transaction),
            day,
            plain(transaction.amount()),
            transaction.payTo(),
            transaction.xfor(),
            transaction.categoryName(),
            transaction.taxFlag() ? kMark : QString(),
            transaction.userFlag() ? kMark : QString()};
}

QString line(QChar sign, const QString& what, const QStringList& fields) {
    QString text = QString(sign) + u'\t' + what;
    for (QString field : fields)
        text += u'\t' + field.replace(u'\t', u' ').replace(u'\n', u' ');
    return text;
}

/// The fields of both, with those that differ as "old => new".
QStringList joined(const QStringList& before, const QStringList& after) {
    QStringList fields;
    for (qsizetype i = 0; i < before.size(); ++i)
        fields.append(before[i] == after[i] ? after[i] : before[i] + kChange + after[i]);
    return fields;
}

template <typename Difference>
void append(QStringList& lines, const QString& what, const std::vector<Difference>& differences) {
    for (const Difference& difference : differences) {
        if (!difference.before)
            lines.append(line(u'+', what, fieldsOf(*difference.after)));
        else if (!difference.after)
            lines.append(line(u'-', what, fieldsOf(*difference.before)));
        else
            lines.append(line(u'~', what, joined(fieldsOf(*difference.before), fieldsOf(*difference.after))));
    }
}

} // namespace

QStringList CVMakeDifferenceLines(const CVBudgetDifferences& differences) {
    QStringList lines;
    append(lines, QStringLiteral("set"), differences.sets);
    append(lines, QStringLiteral("category"), differences.categories);
    append(lines, QStringLiteral("transaction"), differences.transactions);
    return lines;
}
