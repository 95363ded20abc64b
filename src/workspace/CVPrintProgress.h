#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

/// A progress panel of a window for pages being painted; it appears after half a second, never before. While it is
/// shown other events run.
class CVPrintProgress final : public QProgressDialog {
    Q_OBJECT

public:
    CVPrintProgress(QWidget& window, int pages);

    /// So many pages are done; false once the user has cancelled or the panel was closed.
    [[nodiscard]] bool pagesDone(int pages);

private:
    QElapsedTimer mElapsed;
    bool mIsShown = false;
};
