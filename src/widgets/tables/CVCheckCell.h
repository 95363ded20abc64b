#pragma once

class QEvent;
class QModelIndex;
class QPainter;
class QStyleOptionViewItem;

/// The cells of a table that contain only a check box, in the middle of the cell; the styles would place the box at the
/// edge.
namespace CVCheckCell {

/// Paints the box with the rectangle, palette and state of `option`; a disabled cell is greyed.
void paint(QPainter& painter, const QStyleOptionViewItem& option, bool checked);

/// Paints the box of that cell, if it has one; a box that cannot be changed is greyed.
void paint(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& cell);

/// Whether an event on the cell toggles its box: a plain click anywhere in the cell, each click of a double click, or
/// Space.
[[nodiscard]] bool isToggle(const QEvent& event);

} // namespace CVCheckCell
