#pragma once

#include <QLatin1StringView>
#include <QString>

/// The columns of a list of transactions, from left to right, and the names that settings and options have for them.
namespace CVTransactionColumns {

enum Column { Date, Amount, ToFrom, For, Category, Tax, UserFlag, ColumnCount };

/// "date", "amount", "tofrom", "for", "category", "tax" or "userflag".
[[nodiscard]] QLatin1StringView identifier(int column);
/// -1 for an unknown identifier.
[[nodiscard]] int columnOfIdentifier(const QString& identifier);

} // namespace CVTransactionColumns
