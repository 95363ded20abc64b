#pragma once

#include "model/CVTransaction.h"

#include <cstddef>
#include <memory>

/// What a walk reads of each transaction: its figures alone, or its texts as well, which lie behind them.
enum class CVFetch { Figures, Texts };

/// For walks over many transactions: the one at `index`, while one some way ahead is asked for, so that it has come
/// from memory when its turn comes. `step` is 1 for a walk from the first to the last, and -1 for one from the end.
template <CVFetch what = CVFetch::Figures, typename Pointers>
[[nodiscard]] const CVTransaction& CVFetchAhead(const Pointers& transactions, std::size_t index,
                                                std::ptrdiff_t step = 1) {
    constexpr std::ptrdiff_t kDistance = 16;
    constexpr std::ptrdiff_t kCacheLine = 64;
    // Before the first one the number wraps to one that is too large.
    const std::size_t ahead = index + static_cast<std::size_t>(step * kDistance);
    if (ahead < transactions.size()) {
        const CVTransaction* const transaction = std::to_address(transactions[ahead]);
        __builtin_prefetch(transaction);
        if constexpr (what == CVFetch::Texts)
            __builtin_prefetch(reinterpret_cast<const char*>(transaction) + kCacheLine);
    }
    return *transactions[index];
}
