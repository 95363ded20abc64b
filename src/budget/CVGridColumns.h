#pragma once

#include <vector>

/// Which period columns are in a table and which are spare, in their orders: columns that are taken out come back as
/// they were.
class CVGridColumns final {
public:
    /// `columns` columns, numbered from 1, all in the table.
    explicit CVGridColumns(int columns);

    [[nodiscard]] const std::vector<int>& shown() const { return mShown; }
    [[nodiscard]] const std::vector<int>& spare() const { return mSpare; }

    /// Takes the columns behind the first `wanted` out, or puts spare ones back from the first on, as far as there are
    /// any.
    void configure(std::size_t wanted);

private:
    std::vector<int> mShown;
    std::vector<int> mSpare;
};
