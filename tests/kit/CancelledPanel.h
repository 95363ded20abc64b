#pragma once

#include "widgets/CVProgressPanel.h"

#include <QApplication>
#include <QTimer>

/// Cancels each progress panel that is shown as long as this object lives.
class CancelledPanel final {
public:
    CancelledPanel() {
        mTimer.callOnTimeout([] {
            if (auto* const panel = qobject_cast<CVProgressPanel*>(QApplication::activeModalWidget()))
                panel->cancel();
        });
        mTimer.start(0);
    }

private:
    QTimer mTimer;
};
