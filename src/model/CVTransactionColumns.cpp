#include "model/CVTransactionColumns.h"

#include "model/CVTransaction.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

using Key = CVTransactionOrderKey;

struct ColumnOfTransactions {
    QLatin1StringView identifier;
    Key (*orderKey)(const CVTransaction& transaction) = nullptr;
};

double numberOfDay(const std::optional<QBDate>& day) {
    constexpr qint64 kMonths = 16;
    constexpr qint64 kDays = 32;
    if (!day)
        return -std::numeric_limits<double>::infinity();
    return static_cast<double>((day->yearOfCommonEra() * kMonths + day->monthOfYear()) * kDays + day->dayOfMonth());
}

Key noOrder(const CVTransaction& /*transaction*/) {
    return {};
}

/// A transaction without a set comes before all others and does not equal them, as a missing text would.
QString orderedSetName(const CVTransaction& transaction) {
    const QString name = transaction.transactionSetName();
    return name.isNull() ? QLatin1String("") : name;
}

/// In the order of `CVTransactionColumns::Column`.
constexpr std::array<ColumnOfTransactions, CVTransactionColumns::CountWithSet> kColumns{{
    {QLatin1StringView("date"),
     [](const CVTransaction& transaction) -> Key {
         return {.number = numberOfDay(transaction.effectiveDate()), .text = transaction.categoryName()};
     }},
    {QLatin1StringView("amount"),
     [](const CVTransaction& transaction) -> Key { return {.number = transaction.amount()}; }},
    {QLatin1StringView("tofrom"),
     [](const CVTransaction& transaction) -> Key { return {.text = transaction.payTo()}; }},
    {QLatin1StringView("for"), [](const CVTransaction& transaction) -> Key { return {.text = transaction.xfor()}; }},
    {QLatin1StringView("category"),
     [](const CVTransaction& transaction) -> Key { return {.text = transaction.categoryName()}; }},
    {QLatin1StringView("tax"), noOrder},
    {QLatin1StringView("userflag"), noOrder},
    {QLatin1StringView("set"),
     [](const CVTransaction& transaction) -> Key { return {.text = orderedSetName(transaction)}; }},
}};

} // namespace

QLatin1StringView CVTransactionColumns::identifier(int column) {
    return kColumns[static_cast<std::size_t>(column)].identifier;
}

int CVTransactionColumns::columnOfIdentifier(const QString& identifier) {
    const auto* const found = std::find_if(kColumns.begin(), kColumns.end(), [&identifier](const auto& column) {
        return column.identifier == identifier;
    });
    return found == kColumns.end() ? -1 : static_cast<int>(found - kColumns.begin());
}

CVTransactionOrderKey CVTransactionColumns::orderKey(const CVTransaction& transaction, int column) {
    return kColumns[static_cast<std::size_t>(column)].orderKey(transaction);
}
