#include "workspace/CVPrintProgress.h"

#include "shared/format/QBLocale.h"
#include "shared/widgets/CVProgressDelay.h"

#include <limits>

CVPrintProgress::CVPrintProgress(QWidget& window, int pages) : QProgressDialog(&window) {
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(tr("Printing"));
    setCancelButtonText(tr("Cancel"));
    setRange(0, pages);
    // It would estimate how long the rest takes, and appear earlier than it is due.
    setMinimumDuration(std::numeric_limits<int>::max());
    setAutoClose(false);
    setAutoReset(false);
    mElapsed.start();
}

bool CVPrintProgress::pagesDone(int pages) {
    if (mElapsed.elapsed() < kCVProgressDelay)
        return true;
    const QLocale locale = QBLocaleInForce();
    setLabelText(tr("Page %1 of %2").arg(locale.toString(pages), locale.toString(maximum())));
    if (!mIsShown)
        forceShow();
    mIsShown = true;
    setValue(pages);
    return isVisible() && !wasCanceled();
}
