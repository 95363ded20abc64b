#include "widgets/CVProgressPanel.h"

#include "widgets/CVProgressDelay.h"

#include <QPushButton>

#include <limits>

namespace {

int& delay() {
    static int milliseconds = kCVProgressDelay;
    return milliseconds;
}

} // namespace

void CVProgressPanel::setDelay(int milliseconds) {
    delay() = milliseconds;
}

CVProgressPanel::CVProgressPanel(const QString& title, int steps, QWidget* window)
    : QProgressDialog(window)
    , mDelay(delay()) {
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(title);
    // A key that was meant for what the panel covers must not cancel.
    auto* const cancel = new QPushButton(tr("Cancel"), this);
    // Each button brings a shortcut for Escape, and two of them make none: the first goes with its button.
    setCancelButton(nullptr);
    setCancelButton(cancel);
    cancel->setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    setRange(0, steps);
    // It would estimate how long the rest takes, and appear earlier than it is due.
    setMinimumDuration(std::numeric_limits<int>::max());
    setAutoClose(false);
    setAutoReset(false);
    mElapsed.start();
}

bool CVProgressPanel::stepsDone(int steps, const QString& label) {
    if (mElapsed.elapsed() < mDelay)
        return true;
    setLabelText(label);
    if (!mIsShown) {
        forceShow();
        setFocus();
    }
    mIsShown = true;
    setValue(steps);
    return isVisible() && !wasCanceled();
}
