#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

/// Who has a budget open, as the lock beside the data file says. The texts hold no control characters.
struct CVLockHolder {
    QString host;
    QString user;
    /// Tells two computers of one name apart: a digest of the machine's ID.
    QString machine;
    /// The ID of the machine's present start.
    QString boot;
    /// The number of the process and when it was started, in clock ticks since the start of the machine; 0 for unknown.
    qint64 process = 0;
    quint64 started = 0;
    /// The space in which the process has that number: a container numbers its processes itself.
    QString processes;
    /// Random letters by which a holder recognises its own lock.
    QString token;

    /// This process, with a token of its own.
    [[nodiscard]] static CVLockHolder ofThisProcess();
    /// Absent when the bytes are no lock. Lines that later programs add are passed over.
    [[nodiscard]] static std::optional<CVLockHolder> parse(const QByteArray& bytes);
    [[nodiscard]] QByteArray render() const;
    /// Whether both are on one computer; it may have been started anew between them.
    [[nodiscard]] bool isOnHostOf(const CVLockHolder& other) const;

    friend bool operator==(const CVLockHolder&, const CVLockHolder&) = default;
};

/// What this machine knows of a process.
enum class CVProcessState { Gone, Lives, Unknown };

/// Whether the process of that number, started at that tick, still runs here. One that has ended and only waits for its
/// parent is gone.
[[nodiscard]] CVProcessState CVLookAtProcess(qint64 process, quint64 started);

enum class CVLockState {
    /// This program's.
    Own,
    /// Its process has ended, or its computer was started anew.
    Dead,
    /// Without a sign of life for more than five minutes.
    Stale,
    Alive,
    /// It cannot be judged.
    Unknown
};

/// Judges a lock. `holder` is absent when the lock cannot be read; `process` is what this machine knows of the holder's
/// process; `age` is the time since the last sign of life by the clock of the file server, absent when there is none.
/// On this machine the process decides, however old the sign of life is: a machine that slept has given none.
[[nodiscard]] CVLockState CVJudgeLock(const std::optional<CVLockHolder>& holder, const CVLockHolder& self,
                                      CVProcessState process, std::optional<std::chrono::seconds> age);
