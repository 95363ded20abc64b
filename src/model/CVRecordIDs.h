#pragma once

#include <QtGlobal>

#include <unordered_set>
#include <vector>

/// Removes every record whose ID an earlier one has. The records are pointers to categories or sets.
template <typename Records>
void CVKeepFirstOfEachID(Records& records) {
    std::unordered_set<quint32> seen;
    std::erase_if(records, [&seen](const auto& record) { return !seen.insert(record->uniqueID()).second; });
}

template <typename Records>
[[nodiscard]] std::unordered_set<quint32> CVIDsOf(const Records& records) {
    std::unordered_set<quint32> ids;
    for (const auto& record : records)
        ids.insert(record->uniqueID());
    return ids;
}
