#pragma once

#include <QPoint>

class QSize;
class QWidget;

/// Where something of that size belongs to a field on the screen: below it, or above it where the screen ends.
[[nodiscard]] QPoint CVPopupPosition(const QWidget& field, const QSize& size);
