#include "contents/CVDifferenceLines.h"

#include "differences/CVBudgetDifferences.h"
#include "model/CVCategory.h"
#include "model/CVCategoryLookup.h"
#include "model/CVDocument.h"
#include "model/CVExpenseFrequency.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <unordered_map>
#include <vector>

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

/// The names of a document's sets and categories, looked up once for many transactions.
struct Names {
    explicit Names(const CVDocument& document) : categories(document.categories()) {
        for (const auto& set : document.transactionSets())
            sets.emplace(set->uniqueID(), set->transactionSetName());
    }

    /// Empty for transactions without a set.
    [[nodiscard]] QString set(const CVTransaction& transaction) const {
        const auto found = sets.find(transaction.transactionSetID());
        return found == sets.end() ? QString() : found->second;
    }
    [[nodiscard]] QString category(const CVTransaction& transaction) const {
        const CVCategory* const category = categories.find(transaction.categoryID());
        return category ? category->categoryName() : QString();
    }

    std::unordered_map<quint32, QString> sets;
    CVCategoryLookup categories;
};

QStringList fieldsOf(const CVTransaction& transaction, const Names& names) {
    const auto date = transaction.effectiveDate();
    const QString day = date ? QString::fromLatin1(date->corvellaXMLRepresentation()).replace(u'/', u'-') : QString();
    return {names.set(transaction),
            day,
            plain(transaction.amount()),
            transaction.payTo(),
            transaction.xfor(),
            names.category(transaction),
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

template <typename Difference, typename FieldsOf>
void append(QStringList& lines, const QString& what, const std::vector<Difference>& differences, FieldsOf fields) {
    for (const Difference& difference : differences) {
        if (!difference.before)
            lines.append(line(u'+', what, fields(*difference.after)));
        else if (!difference.after)
            lines.append(line(u'-', what, fields(*difference.before)));
        else
            lines.append(line(u'~', what, joined(fields(*difference.before), fields(*difference.after))));
    }
}

} // namespace

QStringList CVMakeDifferenceLines(const CVBudgetDifferences& differences) {
    QStringList lines;
    const auto fields = [](const auto& record) { return fieldsOf(record); };
    append(lines, QStringLiteral("set"), differences.sets, fields);
    append(lines, QStringLiteral("category"), differences.categories, fields);
    // The transactions belong to two documents.
    std::unordered_map<const CVDocument*, Names> names;
    append(lines, QStringLiteral("transaction"), differences.transactions, [&names](const CVTransaction& transaction) {
        const CVDocument* const document = transaction.document();
        return fieldsOf(transaction, names.try_emplace(document, *document).first->second);
    });
    return lines;
}
