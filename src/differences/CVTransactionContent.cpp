#include "differences/CVTransactionContent.h"

#include "base/QBNumberText.h"
#include "model/CVTransaction.h"

#include <array>

namespace {

/// Nothing of an amount that rounds to zero is left but, in the file, its sign, which means nothing.
QByteArray amountInFile(double amount) {
    std::array<char, QBNumberText::kMoneyBound> text{};
    const QByteArray written(text.data(), QBNumberText::writeMoney(text.data(), amount) - text.data());
    return written == "-0.00" ? QByteArray("0.00") : written;
}

/// A null text and an empty one differ in the data file.
bool areEqualTexts(const QString& a, const QString& b) {
    return a == b && a.isNull() == b.isNull();
}

} // namespace

CVTransactionContent::CVTransactionContent(const CVTransaction& transaction)
    : CVTransactionContent(transaction, transaction.transactionSetID(), transaction.categoryID()) {}

CVTransactionContent::CVTransactionContent(const CVTransaction& transaction, std::optional<quint32> setAfter,
                                           std::optional<quint32> categoryAfter)
    : set(setAfter)
    , category(categoryAfter)
    , day(transaction.effectiveDate())
    , amount(amountInFile(transaction.amount()))
    , payTo(transaction.payTo())
    , xfor(transaction.xfor())
    , taxFlag(transaction.taxFlag())
    , userFlag(transaction.userFlag()) {}

bool operator==(const CVTransactionContent& a, const CVTransactionContent& b) {
    return a.set && a.category && a.set == b.set && a.category == b.category && a.day == b.day &&
           a.amount == b.amount && a.taxFlag == b.taxFlag && a.userFlag == b.userFlag &&
           areEqualTexts(a.payTo, b.payTo) && areEqualTexts(a.xfor, b.xfor);
}

size_t qHash(const CVTransactionContent& content, size_t seed) {
    return qHashMulti(seed, content.set.value_or(0), content.category.value_or(0),
                      content.day ? content.day->yearOfCommonEra() : 0, content.day ? content.day->monthOfYear() : 0,
                      content.day ? content.day->dayOfMonth() : 0, content.amount, content.payTo, content.xfor);
}
