#pragma once

#include <QByteArray>
#include <QSize>

class QWidget;

/// Gives a window the frame that it was saved with; one without such a frame gets its first size, as far as the screen
/// has room for it.
void CVRestoreFrame(QWidget& window, const QByteArray& frame, const QSize& firstSize);
