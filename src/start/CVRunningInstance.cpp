#include "start/CVRunningInstance.h"

#include "files/CVMakePrivate.h"
#include "start/CVIncomingCall.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

namespace {

constexpr QLatin1StringView kSocket("/.running");
/// The calls that are listened to at once; a further one ends the oldest.
constexpr qsizetype kMostCalls = 16;
/// The time between two attempts while the other program is starting or ending.
constexpr std::chrono::milliseconds kPause(50);

QString makeFolder(const QString& folder) {
    // Where it cannot be made, the runtime folder serves.
    (void)CVMakePrivateFolder(folder);
    return folder;
}

} // namespace

/// The time that the other program has to answer.
class CVRunningInstance::Waiting final {
public:
    Waiting(std::chrono::milliseconds patience, const Progress& progress)
        : mPatience(patience)
        , mDeadline(patience)
        , mProgress(progress) {}

    /// Tells the progress; false when the time is over or the user does not want to wait any longer.
    [[nodiscard]] bool goesOn() const {
        if (mDeadline.hasExpired())
            return false;
        const std::chrono::duration<double> left = mDeadline.remainingTimeAsDuration();
        return !mProgress || mProgress(1 - left / mPatience);
    }
    /// The milliseconds to wait until the progress is told again.
    [[nodiscard]] int pause() const { return static_cast<int>(qMin(mDeadline.remainingTime(), kPause.count())); }

private:
    std::chrono::milliseconds mPatience;
    QDeadlineTimer mDeadline;
    const Progress& mProgress;
};

CVRunningInstance::CVRunningInstance(const QString& folder, const QString& runtimeFolder)
    : mSockets(folder + kSocket)
    , mLock(makeFolder(folder), runtimeFolder) {
    if (const QString spare = CVRunningLock::sparePath(folder, runtimeFolder); !spare.isEmpty())
        mSockets.append(spare);
    mServer.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&mServer, &QLocalServer::newConnection, this, &CVRunningInstance::answer);
}

CVRunningInstance::Outcome CVRunningInstance::claim(std::chrono::milliseconds patience, const Progress& progress) {
    const Waiting waiting(patience, progress);
    for (;;) {
        const CVFileLock::Outcome locked = mLock.tryLock();
        if (locked != CVFileLock::Outcome::Taken && askOther(waiting))
            return Outcome::OtherShown;
        if (locked != CVFileLock::Outcome::HeldByOther) {
            listen();
            return Outcome::First;
        }
        if (!waiting.goesOn())
            return Outcome::OtherSilent;
        QThread::msleep(kPause.count());
    }
}

/// Without a socket the program works too, but cannot be asked to show itself.
void CVRunningInstance::listen() {
    for (const QString& socket : std::as_const(mSockets)) {
        // QLocalServer::UserAccessOption replaces a socket that a crash left behind.
        if (mServer.listen(socket))
            return;
    }
}

void CVRunningInstance::answer() {
    while (QLocalSocket* const caller = mServer.nextPendingConnection()) {
        mCalls.removeAll(nullptr);
        if (mCalls.size() >= kMostCalls)
            mCalls.takeFirst()->hangUp();
        auto* const call = new CVIncomingCall(caller, mCallerPatience, this);
        connect(call, &CVIncomingCall::showRequested, this, &CVRunningInstance::showRequested);
        mCalls.append(call);
    }
}

bool CVRunningInstance::askOther(const Waiting& waiting) const {
    for (const QString& place : mSockets) {
        QLocalSocket socket;
        socket.connectToServer(place);
        const auto goesOn = [&] { return socket.state() != QLocalSocket::UnconnectedState && waiting.goesOn(); };
        while (!socket.waitForConnected(waiting.pause()) && goesOn()) {
        }
        if (socket.state() == QLocalSocket::ConnectedState)
            socket.write(CVIncomingCall::kShow);
        while (!socket.waitForReadyRead(waiting.pause()) && goesOn()) {
        }
        if (socket.isOpen() && socket.readAll() == CVIncomingCall::kShown)
            return true;
    }
    return false;
}
