#include "widgets/tables/CVSharedWidths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace {

constexpr int kLeast = 10;

struct SharingRow {
    const char* behaviour;
    std::vector<CVColumnNeed> columns;
    int width;
    std::vector<int> widths;
};

void PrintTo(const SharingRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class SharedWidths : public testing::TestWithParam<SharingRow> {};

TEST_P(SharedWidths, Are) {
    EXPECT_EQ(CVSharedWidths(GetParam().columns, GetParam().width, kLeast), GetParam().widths);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SharedWidths,
    testing::Values(
        SharingRow{"none for no columns", {}, 100, {}},
        SharingRow{"what is needed", {{30, false}, {70, true}}, 100, {30, 70}},
        SharingRow{"what is left over for the texts", {{30, false}, {20, true}, {40, true}}, 101, {30, 25, 46}},
        SharingRow{"no more than needed without texts", {{30, false}}, 100, {30}},
        SharingRow{"less for the widest text", {{30, false}, {20, true}, {90, true}}, 100, {30, 20, 50}},
        SharingRow{"the same for texts that are too wide", {{30, false}, {80, true}, {90, true}}, 100, {30, 35, 35}},
        SharingRow{"a short text's need before its least", {{90, false}, {4, true}, {90, true}}, 104, {90, 4, 10}},
        SharingRow{"less for the others where texts would get too little",
                   {{60, false}, {30, false}, {80, true}},
                   90,
                   {30, 30, 30}},
        SharingRow{"the same for all in a table without room", {{60, false}, {80, true}}, 9, {4, 5}}));

} // namespace
