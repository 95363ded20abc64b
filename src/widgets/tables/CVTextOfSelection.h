#pragma once

#include <QString>

class QAbstractItemView;

/// The selection of a table as text: one line for each row, with tabs between its cells. Where whole rows are selected,
/// a row stands for all its cells.
[[nodiscard]] QString CVTextOfSelection(const QAbstractItemView& table);
