#pragma once

#include "files/CVRuntimeFolder.h"
#include "lock/CVRunningLock.h"

#include <QList>
#include <QLocalServer>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>

class CVIncomingCall;

/// Makes sure that only one program works in a folder: the first one holds a lock in the folder and listens on a
/// socket; a later one asks the first to show itself instead of opening the same data file. A lock or socket that a
/// crash left behind does not count. Where the folder allows no lock or no socket (the path of a socket has at most 107
/// bytes), a spare one is in the runtime folder, named after a digest of the folder's path.
class CVRunningInstance final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        /// This program is the only one until this object is destroyed. Also the outcome when nothing can be locked at
        /// all.
        First,
        /// Another program runs and has come to the front.
        OtherShown,
        /// Another program runs and has not answered in time.
        OtherSilent
    };

    /// Makes the folder if it is missing. `runtimeFolder` is the folder that the user has while logged in; empty for
    /// none.
    explicit CVRunningInstance(const QString& folder, const QString& runtimeFolder = CVRuntimeFolder::ofUser());

    /// Is told the part of the time that is over; false ends the waiting.
    using Progress = std::function<bool(double part)>;

    /// The time that a caller has to say what it wants.
    void setCallerPatience(std::chrono::milliseconds patience) { mCallerPatience = patience; }

    /// Waits for another program's answer, at most for `patience`, and tells the progress every 50 milliseconds.
    [[nodiscard]] Outcome claim(std::chrono::milliseconds patience, const Progress& progress = {});

signals:
    /// Emitted when the user has started the program once more.
    void showRequested();

private:
    class Waiting;

    void listen();
    void answer();
    [[nodiscard]] bool askOther(const Waiting& waiting) const;

    /// The paths at which the first program may listen, in order.
    QStringList mSockets;
    CVRunningLock mLock;
    QLocalServer mServer;
    std::chrono::milliseconds mCallerPatience{2000};
    /// Oldest first.
    QList<QPointer<CVIncomingCall>> mCalls;
};
