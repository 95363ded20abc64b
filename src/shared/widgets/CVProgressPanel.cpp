#include "shared/widgets/CVProgressPanel.h"

#include "shared/widgets/CVProgressDelay.h"

#include <limits>

CVProgressPanel::CVProgressPanel(const QString& title, int steps, QWidget* window) : QProgressDialog(window) {
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(title);
    setCancelButtonText(tr("Cancel"));
    setRange(0, steps);
    // It would estimate how long the rest takes, and appear earlier than it is due.
    setMinimumDuration(std::numeric_limits<int>::max());
    setAutoClose(false);
    setAutoReset(false);
    mElapsed.start();
}

bool CVProgressPanel::stepsDone(int steps, const QString& label) {
    if (mElapsed.elapsed() < kCVProgressDelay)
        return true;
    setLabelText(label);
    if (!mIsShown)
        forceShow();
    mIsShown = true;
    setValue(steps);
    return isVisible() && !wasCanceled();
}
