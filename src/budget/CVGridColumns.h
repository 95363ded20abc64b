#pragma once

#include <vector>

/// The period columns that a table shows and those that are spare, each in order, so that columns that are taken out
/// come back in their old order.
class CVGridColumns final {
public:
    /// Starts with `columns` columns, numbered from 1, all shown.
    explicit CVGridColumns(int columns);

    [[nodiscard]] const std::vector<int>& shown() const { return mShown; }
    [[nodiscard]] const std::vector<int>& spare() const { return mSpare; }

    /// Takes out the columns after the first `wanted`, or puts back spare ones, from the first on, until `wanted` are
    /// shown or no spare one is left.
    void configure(std::size_t wanted);

private:
    std::vector<int> mShown;
    std::vector<int> mSpare;
};
