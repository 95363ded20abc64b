#include "shared/widgets/CVSteadyComboBox.h"

#include <QWheelEvent>

CVSteadyComboBox::CVSteadyComboBox(QWidget* parent) : QComboBox(parent) {
    // Nor does the wheel give it the focus.
    setFocusPolicy(Qt::StrongFocus);
}

void CVSteadyComboBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
