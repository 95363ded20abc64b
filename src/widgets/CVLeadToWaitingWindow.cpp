#include "widgets/CVLeadToWaitingWindow.h"

#include <QApplication>
#include <QWidget>

bool CVLeadToWaitingWindow() {
    QWidget* const waiting = QApplication::activeModalWidget();
    if (!waiting)
        return false;
    waiting->raise();
    waiting->activateWindow();
    return true;
}
