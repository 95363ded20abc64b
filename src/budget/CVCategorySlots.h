#pragma once

#include "model/CVCollections.h"

#include <QtGlobal>

#include <span>
#include <unordered_map>
#include <vector>

/// The IDs of the categories, in their order.
[[nodiscard]] std::vector<quint32> CVIDsOfCategories(const CVCategories& categories);

/// Numbers the different IDs of some categories from 0 on, so that one walk over the transactions can add up all of
/// these categories. Make a new object for each walk.
class CVCategorySlots final {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    explicit CVCategorySlots(std::span<const quint32> categoryIDs);

    [[nodiscard]] std::size_t count() const { return mSlots.size(); }
    /// `kNone` for an ID that no category has.
    [[nodiscard]] std::size_t slotOf(quint32 id) const;

private:
    std::unordered_map<quint32, std::size_t> mSlots;
};
