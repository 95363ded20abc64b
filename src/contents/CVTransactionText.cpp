#include "contents/CVTransactionText.h"

#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"

#include <array>

namespace {

constexpr std::array<const char*, CVTransactionColumns::ColumnCount> kTitles{
    QT_TRANSLATE_NOOP("CVTransactionText", "Date"),         QT_TRANSLATE_NOOP("CVTransactionText", "Amount"),
    QT_TRANSLATE_NOOP("CVTransactionText", "Paid To/From"), QT_TRANSLATE_NOOP("CVTransactionText", "For"),
    QT_TRANSLATE_NOOP("CVTransactionText", "Category"),     QT_TRANSLATE_NOOP("CVTransactionText", "Tax"),
    QT_TRANSLATE_NOOP("CVTransactionText", "Flag")};

} // namespace

QString CVTransactionText::title(int column) {
    return tr(kTitles[static_cast<std::size_t>(column)]);
}

QString CVTransactionText::string(const CVTransaction& transaction, int column) const {
    const auto yesOrNo = [](bool flag) { return flag ? tr("Yes") : tr("No"); };
    switch (column) {
    case CVTransactionColumns::Date: {
        const auto date = transaction.effectiveDate();
        return date ? mDateFormatter.string(*date) : QString();
    }
    case CVTransactionColumns::Amount:
        return mMoneyFormatter.string(transaction.amount());
    case CVTransactionColumns::ToFrom:
        return transaction.payTo();
    case CVTransactionColumns::For:
        return transaction.xfor();
    case CVTransactionColumns::Category:
        return transaction.categoryName();
    case CVTransactionColumns::Tax:
        return yesOrNo(transaction.taxFlag());
    default:
        return yesOrNo(transaction.userFlag());
    }
}
