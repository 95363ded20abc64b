#include "widgets/CVPlaceholderColour.h"

#include "widgets/CVQuietTextColour.h"

#include <QApplication>
#include <QEvent>

namespace {

void followText() {
    const QColor quiet = CVQuietTextColour(QApplication::palette());
    // Setting the palette changes it once more.
    if (QApplication::palette().color(QPalette::Active, QPalette::PlaceholderText) == quiet)
        return;
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::PlaceholderText, quiet);
    QApplication::setPalette(palette);
}

} // namespace

CVPlaceholderColour::CVPlaceholderColour(QApplication& application) : mApplication(application) {
    application.installEventFilter(this);
    followText();
}

bool CVPlaceholderColour::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &mApplication && event->type() == QEvent::ApplicationPaletteChange)
        followText();
    return false;
}
