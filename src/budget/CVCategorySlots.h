#pragma once

#include "model/CVDocument.h"

#include <span>
#include <unordered_map>
#include <vector>

/// The IDs of the categories, in their order.
[[nodiscard]] std::vector<quint32> CVCategoryIDs(const CVDocument::Categories& categories);

/// Numbers the different IDs of some categories from 0 on, so that one walk over the transactions can add up all of
/// them side by side. Made anew for each walk.
class CVCategorySlots final {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    explicit CVCategorySlots(std::span<const quint32> categoryIDs);

    [[nodiscard]] std::size_t count() const { return mCount; }
    /// `kNone` for an ID that no category has.
    [[nodiscard]] std::size_t slotOf(quint32 id) const {
        if (id < mSmall.size())
            return mSmall[id];
        return mLarge.empty() ? kNone : slotOfLarge(id);
    }

private:
    [[nodiscard]] std::size_t slotOfLarge(quint32 id) const;

    std::size_t mCount = 0;
    /// Indexed by ID: a document issues IDs from 1 on, so nearly all are small.
    std::vector<std::size_t> mSmall;
    std::unordered_map<quint32, std::size_t> mLarge;
};
