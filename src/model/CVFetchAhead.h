#pragma once

#include "model/CVDocument.h"
#include "model/CVTransaction.h"

/// For walks over all transactions that do more than read: the one at `index`, while one some way ahead is asked for,
/// so that it has come from memory when its turn comes.
[[nodiscard]] inline const CVTransaction& CVFetchAhead(const CVDocument::Transactions& transactions,
                                                       std::size_t index) {
    constexpr std::size_t kDistance = 16;
    if (index + kDistance < transactions.size())
        __builtin_prefetch(transactions[index + kDistance].get());
    return *transactions[index];
}
