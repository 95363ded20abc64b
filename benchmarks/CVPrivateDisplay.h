#pragma once

#include <QProcess>

#include <chrono>

struct xcb_connection_t;

/// A screen in memory that only the programs measured are shown on.
class CVPrivateDisplay final {
public:
    CVPrivateDisplay();
    ~CVPrivateDisplay();
    CVPrivateDisplay(const CVPrivateDisplay&) = delete;
    CVPrivateDisplay& operator=(const CVPrivateDisplay&) = delete;

    /// The value of DISPLAY for a program that is to be shown there.
    [[nodiscard]] QString name() const { return mName; }
    /// Waits until a window with that title is shown; false when none is shown within that time. Windows that an
    /// earlier call has found do not count.
    [[nodiscard]] bool waitForWindow(const QByteArray& title, std::chrono::seconds patience);

private:
    [[nodiscard]] QByteArray titleOf(quint32 window);

    QProcess mServer;
    QString mName;
    xcb_connection_t* mConnection = nullptr;
    quint32 mTitleAtom = 0;
};
