#pragma once

#include "app/CVFileLock.h"
#include "base/CVRuntimeFolder.h"

#include <QLocalServer>
#include <QObject>

#include <chrono>

class QDeadlineTimer;

/// The one running program of a folder: the first holds a lock there and listens; whoever comes later has the first
/// shown instead of working on the same data file. A lock or socket that a crash left behind does not count. Where the
/// folder takes no lock or no socket (the path of a socket has at most 107 bytes), both lie in the runtime folder,
/// under a name made from the folder's.
class CVRunningInstance final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        /// This program is the one, until this object goes. Also where nothing can be locked at all.
        First,
        /// Another one runs and has come to the front.
        OtherShown,
        /// Another one runs and has not answered in time.
        OtherSilent
    };

    /// The folder is made if it is missing. `runtimeFolder` is the user's own for as long as the user is logged in;
    /// empty for none.
    explicit CVRunningInstance(const QString& folder, const QString& runtimeFolder = CVRuntimeFolder::ofUser());

    /// Blocks while another program takes its time to answer, but not longer than `patience`.
    [[nodiscard]] Outcome claim(std::chrono::milliseconds patience);

signals:
    /// The user has started the program once more.
    void showRequested();

private:
    [[nodiscard]] CVFileLock::Outcome lock();
    void listen();
    void answer();
    [[nodiscard]] bool askOther(const QDeadlineTimer& deadline) const;

    /// Where the first may be listening, in order.
    QStringList mSockets;
    CVFileLock mLock;
    /// Taken where the other cannot be.
    CVFileLock mSpareLock;
    QLocalServer mServer;
};
