#pragma once

#include <QLatin1StringView>
#include <QString>

class CVTransaction;

/// What a column orders by: first the number, then the text. A column leaves empty what it does not use.
struct CVTransactionOrderKey {
    /// The amount, or a number that grows with the day; a missing day comes before all.
    double number = 0;
    QString text = QString();
};

/// The columns of a list of transactions, from left to right, the names that settings and options have for them, and
/// the order that each gives. `CVTransactionText` has their titles and texts.
namespace CVTransactionColumns {

/// `ColumnCount` columns belong to a list of one set; the set itself is a further column where all sets are listed.
enum Column { Date, Amount, ToFrom, For, Category, Tax, UserFlag, ColumnCount, Set = ColumnCount, CountWithSet };

/// "date", "amount", "tofrom", "for", "category", "tax", "userflag" or "set".
[[nodiscard]] QLatin1StringView identifier(int column);
/// -1 for an unknown identifier.
[[nodiscard]] int columnOfIdentifier(const QString& identifier);
/// The same empty key for all transactions when the column gives no order, as the flags do.
[[nodiscard]] CVTransactionOrderKey orderKey(const CVTransaction& transaction, int column);

} // namespace CVTransactionColumns
