#pragma once

class QEvent;
class QPainter;
class QStyleOptionViewItem;

/// The cells of a table that are nothing but a check box, in its middle: the styles put the box of a cell at its edge.
namespace CVCheckCell {

/// The place and the look of the cell are those of `option`; one that is not enabled is painted greyed.
void paint(QPainter& painter, const QStyleOptionViewItem& option, bool checked);

/// Whether an event on the cell turns its box round: a plain click anywhere in the cell, each one of
/// a double click, or Space.
[[nodiscard]] bool isToggle(const QEvent& event);

} // namespace CVCheckCell
