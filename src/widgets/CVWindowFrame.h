#pragma once

#include <QByteArray>
#include <QSize>

class QWidget;

/// What the window's screen has room for, the frame of the window manager included.
[[nodiscard]] QSize CVLargestWindow(const QWidget& window);

/// Gives a window the frame that it was saved with, as far as the present screens have room for it; one without such a
/// frame gets its first size, as far as its screen has room.
void CVRestoreFrame(QWidget& window, const QByteArray& frame, const QSize& firstSize);
