#pragma once

#include "model/CVCollections.h"
#include "model/CVIDMap.h"

#include <span>
#include <vector>

/// The IDs of the categories, in their order.
[[nodiscard]] std::vector<quint32> CVIDsOfCategories(const CVCategories& categories);

/// Numbers the different IDs of some categories from 0 on, so that one walk over the transactions can add up all of
/// these categories. Each walk makes its own.
class CVCategorySlots final {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    explicit CVCategorySlots(std::span<const quint32> categoryIDs);

    [[nodiscard]] std::size_t count() const { return mCount; }
    /// `kNone` for an ID that no category has.
    [[nodiscard]] std::size_t slotOf(quint32 id) const { return mSlots.find(id); }

private:
    std::size_t mCount = 0;
    CVIDMap<std::size_t> mSlots{kNone};
};
