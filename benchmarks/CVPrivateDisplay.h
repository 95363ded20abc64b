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

    /// What DISPLAY is set to for a program.
    [[nodiscard]] QString name() const { return mName; }
    /// Waits until a window of that title is shown, from the last call on; false when none is within that time.
    [[nodiscard]] bool waitForWindow(const QByteArray& title, std::chrono::seconds patience);

private:
    [[nodiscard]] QByteArray titleOf(quint32 window);

    QProcess mServer;
    QString mName;
    xcb_connection_t* mConnection = nullptr;
    quint32 mTitleAtom = 0;
};
