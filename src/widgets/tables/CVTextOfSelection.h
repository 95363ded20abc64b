#pragma once

#include <QString>

class QAbstractItemView;

/// The selection of a table as text: one line for each row, with tabs between its cells. Where whole rows are selected,
/// a row stands for all its cells.
[[nodiscard]] QString CVTextOfSelection(const QAbstractItemView& table);

/// The selection as an HTML table with the same texts, so that spreadsheets keep the columns. A cell that is not
/// selected, between others that are, is empty. Empty for very many cells.
[[nodiscard]] QString CVHTMLOfSelection(const QAbstractItemView& table);

/// Puts the selection on the clipboard, as text and as HTML.
void CVCopySelection(const QAbstractItemView& table);
