#pragma once

class QModelIndex;

/// A fault in a name of a list of names. A fault is remarked on, not forbidden.
enum class CVNameFault {
    None,
    /// The name has no visible characters.
    Empty,
    /// Another row has the same name, ignoring case.
    Taken
};

/// The fault of the name in a cell, compared with the other names in the cell's column.
[[nodiscard]] CVNameFault CVFaultOfName(const QModelIndex& cell);
