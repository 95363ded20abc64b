#include "shared/widgets/CVWindowFrame.h"

#include <QScreen>
#include <QWidget>

void CVRestoreFrame(QWidget& window, const QByteArray& frame, const QSize& firstSize) {
    if (!window.restoreGeometry(frame))
        window.resize(firstSize.boundedTo(window.screen()->availableSize()));
}
