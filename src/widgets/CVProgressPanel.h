#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

/// A panel that shows how far long work has come and can cancel it. It appears half a second after it was made, never
/// before: one that flashes up would only disturb. While it is shown other events run.
class CVProgressPanel final : public QProgressDialog {
    Q_OBJECT

public:
    /// Before a window, or without one, in front of no other.
    CVProgressPanel(const QString& title, int steps, QWidget* window);

    /// Of all panels that are made from now on, so that tests depend on no clock: after how many milliseconds they
    /// appear.
    static void setDelay(int milliseconds);

    /// So many steps are done; false once the user has cancelled or the panel was closed. `label` says what is being
    /// done.
    [[nodiscard]] bool stepsDone(int steps, const QString& label);

private:
    int mDelay;
    QElapsedTimer mElapsed;
    bool mIsShown = false;
};
