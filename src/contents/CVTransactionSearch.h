#pragma once

#include "contents/CVShownSets.h"
#include "model/CVCollections.h"

#include <QString>

/// The part of a transaction that a search compares; the numbers are the tags of the search menu.
enum class CVSearchKind : quint8 {
    AllTextFields,
    PaidTo,
    For,
    Category,
    Tax,
    UserFlag,
    AmountGreaterThan,
    AmountEqualTo,
    AmountLessThan
};
inline constexpr int kCVSearchKinds = 9;

/// The title of a kind, such as "All Text Fields", in the user's language; empty for a number that is no kind.
[[nodiscard]] QString CVTitleOfSearchKind(int kind);

/// The transactions that match, in their order; none for a number that is no kind. A text matches when it contains
/// `text` without regard to case, or when it is missing. Amounts are compared with the number at the beginning of
/// `text`, 0 when there is none. A flag that is set matches when `text` contains "Yes" or "On", and a flag that is not
/// set when `text` contains "No" or "Off"; with both words the transaction is listed twice.
/// Where all sets are shown, the names of the sets are text fields too; there a missing name matches nothing.
[[nodiscard]] CVTransactions searchTransactionsWithString(const CVTransactions& transactions, int kind,
                                                          const QString& text,
                                                          CVShownSets shownSets = CVShownSets::Current);
