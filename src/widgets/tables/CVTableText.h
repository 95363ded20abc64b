#pragma once

#include <QString>

class QAbstractItemView;

/// What is selected in a table, as text: a line for each row, its cells parted by tabs. Where whole rows are selected,
/// a row stands for all its cells.
[[nodiscard]] QString CVSelectedText(const QAbstractItemView& table);
