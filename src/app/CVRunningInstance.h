#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

#include <chrono>

class QDeadlineTimer;

/// The one running program of a folder: the first holds a lock there and listens; whoever comes later has the first
/// shown instead of working on the same data file. A lock or socket that a crash left behind does not count.
class CVRunningInstance final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        /// This program is the one, until this object goes. Also where nothing can be locked, as in a folder that is
        /// read-only.
        First,
        /// Another one runs and has come to the front.
        OtherShown,
        /// Another one runs and has not answered in time.
        OtherSilent
    };

    /// The folder is made if it is missing.
    explicit CVRunningInstance(const QString& folder);

    /// Blocks while another program takes its time to answer, but not longer than `patience`.
    [[nodiscard]] Outcome claim(std::chrono::milliseconds patience);

signals:
    /// The user has started the program once more.
    void showRequested();

private:
    [[nodiscard]] bool lock();
    void listen();
    void answer();
    [[nodiscard]] bool askOther(const QDeadlineTimer& deadline) const;

    QString mSocket;
    QLockFile mLock;
    QLocalServer mServer;
};
