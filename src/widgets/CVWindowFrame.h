#pragma once

#include <QByteArray>
#include <QSize>

class QWidget;

/// The place and size of a window on the screens.
namespace CVWindowFrame {

/// The largest size with which a window and the frame of the window manager fit the window's screen.
[[nodiscard]] QSize largestSize(const QWidget& window);

/// Gives a window its saved geometry, shrunk and moved onto the screens that are connected now. A window without a
/// saved geometry gets `firstSize`, shrunk to its screen.
void restore(QWidget& window, const QByteArray& frame, const QSize& firstSize);

} // namespace CVWindowFrame
