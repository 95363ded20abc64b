#include "workspace/controls/CVRecordingNote.h"

#include "widgets/CVQuietTextColour.h"

#include <QEvent>

CVRecordingNote::CVRecordingNote(QWidget* parent) : CVElidedLabel(parent) {
    setObjectName(QStringLiteral("mRecordingNote"));
    adjustColour();
    hide();
}

void CVRecordingNote::setSet(const std::optional<QString>& name) {
    setText(name ? tr("Recording into “%1”").arg(*name) : QString());
    setVisible(name.has_value());
}

void CVRecordingNote::changeEvent(QEvent* event) {
    CVElidedLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        adjustColour();
}

void CVRecordingNote::adjustColour() {
    QPalette quiet = palette();
    quiet.setColor(QPalette::WindowText, CVQuietTextColour(palette()));
    setPalette(quiet);
}
