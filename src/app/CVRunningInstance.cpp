#include "app/CVRunningInstance.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QThread>

namespace {

constexpr QLatin1StringView kLock("/.running.lock");
constexpr QLatin1StringView kSocket("/.running");
constexpr const char* kAnswer = "shown\n";
/// Between two looks at a program that is just starting or ending.
constexpr std::chrono::milliseconds kPause(50);

QString made(const QString& folder) {
    QDir().mkpath(folder);
    return folder;
}

} // namespace

CVRunningInstance::CVRunningInstance(const QString& folder) : mSocket(folder + kSocket), mLock(made(folder) + kLock) {
    // However long the program runs, its lock stays its own.
    mLock.setStaleLockTime(0);
    mServer.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&mServer, &QLocalServer::newConnection, this, &CVRunningInstance::answer);
}

CVRunningInstance::Outcome CVRunningInstance::claim(std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    for (;;) {
        if (lock()) {
            listen();
            return Outcome::First;
        }
        if (askOther(deadline))
            return Outcome::OtherShown;
        if (deadline.hasExpired())
            return Outcome::OtherSilent;
        QThread::msleep(kPause.count());
    }
}

/// Whether no other program holds the lock.
bool CVRunningInstance::lock() {
    return mLock.tryLock() || mLock.error() != QLockFile::LockFailedError;
}

/// Without a socket the program works all the same; it only cannot be called.
void CVRunningInstance::listen() {
    // It takes the place of a socket that a crash left behind.
    mServer.listen(mSocket);
}

void CVRunningInstance::answer() {
    while (QLocalSocket* const caller = mServer.nextPendingConnection()) {
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        emit showRequested();
        caller->write(kAnswer);
        caller->flush();
    }
}

bool CVRunningInstance::askOther(const QDeadlineTimer& deadline) const {
    QLocalSocket socket;
    socket.connectToServer(mSocket);
    const auto left = [&deadline] { return static_cast<int>(deadline.remainingTime()); };
    return socket.waitForConnected(left()) && socket.waitForReadyRead(left()) && socket.readAll() == kAnswer;
}
