#include "model/CVIDMap.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kAbsent = -1;

/// IDs below 4,096 are looked up by index, larger ones in a hash table.
constexpr quint32 kIds[] = {0, 1, 2, 4095, 4096, 4097, 1'000'000, std::numeric_limits<quint32>::max()};

TEST(CVIDMap, FindsWhatWasInsertedForAnIDAndNothingForItsNeighbours) {
    for (const quint32 id : kIds) {
        CVIDMap<int> map(kAbsent);
        EXPECT_EQ(map.find(id), kAbsent) << id;
        EXPECT_TRUE(map.insert(id, 7)) << id;
        EXPECT_EQ(map.find(id), 7) << id;
        EXPECT_EQ(map.find(id + 1), kAbsent) << id;
        EXPECT_EQ(map.find(id - 1), kAbsent) << id;
    }
}

TEST(CVIDMap, KeepsTheFirstValueOfAnID) {
    CVIDMap<int> map(kAbsent);
    int value = 0;
    for (const quint32 id : kIds)
        EXPECT_TRUE(map.insert(id, ++value)) << id;
    for (const quint32 id : kIds)
        EXPECT_FALSE(map.insert(id, 99)) << id;
    value = 0;
    for (const quint32 id : kIds)
        EXPECT_EQ(map.find(id), ++value) << id;
}

} // namespace
