#pragma once

#include "model/CVDocument.h"

#include <QString>

/// What a search looks at; the numbers are the tags of the search menu.
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

/// "All Text Fields" and so on; empty for a number that is no kind.
[[nodiscard]] QString CVSearchKindTitle(int kind);

/// The transactions that match, in their order; none for a number that is no kind.
/// Texts match where they contain `text` without regard to case, and so does a text that is missing altogether. Amounts
/// are compared with the number that `text` begins with, 0 when it begins with none. For the flags it is the other way
/// round: `text` has to contain the word, "Yes" or "On" for a flag that is set, "No" or "Off" for one that is not; with
/// both words the transaction is listed twice.
[[nodiscard]] CVDocument::Transactions searchTransactionsWithString(const CVDocument::Transactions& transactions,
                                                                    int kind, const QString& text);
