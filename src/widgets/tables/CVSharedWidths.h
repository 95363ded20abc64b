#pragma once

#include <vector>

/// What a column of a table needs to show all of its contents.
struct CVColumnNeed {
    int width = 0;
    /// A column of texts may be cut off where the table is narrow, and gets what is left over where it is wide.
    bool isText = false;
};

/// The widths of the columns in a table of that width. Columns of texts share fairly what the others leave: none is cut
/// off for the sake of a wider one. Where they would get less than `least`, all columns share. All together are as wide
/// as the table, unless nothing needs that and there is no column of texts.
[[nodiscard]] std::vector<int> CVSharedWidths(const std::vector<CVColumnNeed>& columns, int width, int least);
