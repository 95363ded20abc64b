#pragma once

#include <QPoint>

class QSize;
class QWidget;

/// The top left corner, on the screen, of a popup of that size that belongs to a field: below the field, or above it
/// where there is no room below. The popup starts at the field's left edge, or at its right edge in a right-to-left
/// layout.
[[nodiscard]] QPoint CVPositionOfPopup(const QWidget& field, const QSize& size);
