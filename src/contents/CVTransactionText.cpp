#include "contents/CVTransactionText.h"

#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"

#include <array>

namespace {

struct Formatters {
    const QBDateFormatter& dates;
    const QBMoneyFormatter& money;
};

struct ColumnText {
    const char* title;
    QString (*string)(const CVTransaction& transaction, const Formatters& formatters);
};

QString yesOrNo(bool flag) {
    return flag ? CVTransactionText::tr("Yes") : CVTransactionText::tr("No");
}

/// In the order of `CVTransactionColumns::Column`.
constexpr std::array<ColumnText, CVTransactionColumns::CountWithSet> kColumns{{
    {QT_TRANSLATE_NOOP("CVTransactionText", "Date"),
     [](const CVTransaction& transaction, const Formatters& formatters) {
         const auto date = transaction.effectiveDate();
         return date ? formatters.dates.string(*date) : QString();
     }},
    {QT_TRANSLATE_NOOP("CVTransactionText", "Amount"),
     [](const CVTransaction& transaction, const Formatters& formatters) {
         return formatters.money.string(transaction.amount());
     }},
    {QT_TRANSLATE_NOOP("CVTransactionText", "Paid To/From"),
     [](const CVTransaction& transaction, const Formatters&) { return transaction.payTo(); }},
    {QT_TRANSLATE_NOOP("CVTransactionText", "For"),
     [](const CVTransaction& transaction, const Formatters&) { return transaction.xfor(); }},
    {QT_TRANSLATE_NOOP("CVTransactionText", "Category"),
     [](const CVTransaction& transaction, const Formatters&) { return transaction.categoryName(); }},
    {QT_TRANSLATE_NOOP("CVTransactionText", "Tax"),
     [](const CVTransaction& transaction, const Formatters&) { return yesOrNo(transaction.taxFlag()); }},
    {QT_TRANSLATE_NOOP("CVTransactionText", "Flag"),
     [](const CVTransaction& transaction, const Formatters&) { return yesOrNo(transaction.userFlag()); }},
    {QT_TRANSLATE_NOOP("CVTransactionText", "Set"),
     [](const CVTransaction& transaction, const Formatters&) { return transaction.transactionSetName(); }},
}};

} // namespace

QString CVTransactionText::title(int column) {
    return tr(kColumns[static_cast<std::size_t>(column)].title);
}

QString CVTransactionText::string(const CVTransaction& transaction, int column) const {
    return kColumns[static_cast<std::size_t>(column)].string(transaction, {mDateFormatter, mMoneyFormatter});
}
