#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

/// A panel that shows the progress of long work and can cancel it. The panel appears half a second after it was made,
/// never before: a panel that flashes up would only disturb. Other events run while the panel is shown.
class CVProgressPanel final : public QProgressDialog {
    Q_OBJECT

public:
    /// A null `window` gives a panel without a parent.
    CVProgressPanel(const QString& title, int steps, QWidget* window);

    /// Sets after how many milliseconds panels appear that are made from now on, so that tests do not depend on the
    /// clock.
    static void setDelay(int milliseconds);

    /// Tells the panel how many steps are done and, in `label`, what is being done. False once the user has cancelled
    /// or closed the panel.
    [[nodiscard]] bool stepsDone(int steps, const QString& label);

private:
    int mDelay;
    QElapsedTimer mElapsed;
    bool mIsShown = false;
};
