#pragma once

#include <QPoint>

class QSize;
class QWidget;

/// Where something of that size belongs to a field on the screen: below it, or above it where the screen ends,
/// beginning where the field begins: at its right where it is read from right to left.
[[nodiscard]] QPoint CVPopupPosition(const QWidget& field, const QSize& size);
