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
    // The Cancel button must not get the focus: a key that was meant for the window below would cancel.
    auto* const cancel = new QPushButton(tr("Cancel"), this);
    // setCancelButton() adds a shortcut for Escape for each button, and two equal shortcuts disable each
    // other. Deleting the first button deletes its shortcut.
    setCancelButton(nullptr);
    setCancelButton(cancel);
    cancel->setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    setRange(0, steps);
    // This switches off the toolkit's own estimate, which would show the panel too early.
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
