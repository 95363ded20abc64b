#pragma once

class QModelIndex;

/// What is odd about a name in a list of names. Nothing forbids it.
enum class CVNameFault {
    None,
    /// There is nothing to see of it.
    Empty,
    /// Another row bears it, in whatever case.
    Taken
};

/// Of the name in that cell, among those in its column.
[[nodiscard]] CVNameFault CVFaultOfName(const QModelIndex& cell);
