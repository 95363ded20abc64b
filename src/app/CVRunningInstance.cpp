#include "app/CVRunningInstance.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QThread>

namespace {

constexpr QLatin1StringView kLock("/.running.lock");
constexpr QLatin1StringView kSocket("/.running");
constexpr QLatin1StringView kSpareName("/corvella-");
constexpr QLatin1StringView kSpareLock(".lock");
constexpr int kDigestLetters = 16;
constexpr const char* kAnswer = "shown\n";
/// The time between two attempts while the other program is starting or ending.
constexpr std::chrono::milliseconds kPause(50);

QString madeFolder(const QString& folder) {
    QDir().mkpath(folder);
    return folder;
}

/// The path of the spare socket of a folder, and the beginning of that of the spare lock; the same for every way to
/// name the folder. Empty without a runtime folder.
QString sparePath(const QString& folder, const QString& runtimeFolder) {
    if (runtimeFolder.isEmpty())
        return {};
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    const QByteArray name = QFile::encodeName(canonical.isEmpty() ? QDir::cleanPath(folder) : canonical);
    const QByteArray digest = QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex();
    return runtimeFolder + kSpareName + QString::fromLatin1(digest.first(kDigestLetters));
}

} // namespace

CVRunningInstance::CVRunningInstance(const QString& folder, const QString& runtimeFolder)
    : mSockets(folder + kSocket)
    , mLock(madeFolder(folder) + kLock)
    , mSpareLock(runtimeFolder.isEmpty() ? QString() : sparePath(folder, runtimeFolder) + kSpareLock) {
    if (const QString spare = sparePath(folder, runtimeFolder); !spare.isEmpty())
        mSockets.append(spare);
    mServer.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&mServer, &QLocalServer::newConnection, this, &CVRunningInstance::answer);
}

CVRunningInstance::Outcome CVRunningInstance::claim(std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    for (;;) {
        const CVFileLock::Outcome locked = lock();
        if (locked != CVFileLock::Outcome::Taken && askOther(deadline))
            return Outcome::OtherShown;
        if (locked != CVFileLock::Outcome::HeldByOther) {
            listen();
            return Outcome::First;
        }
        if (deadline.hasExpired())
            return Outcome::OtherSilent;
        QThread::msleep(kPause.count());
    }
}

CVFileLock::Outcome CVRunningInstance::lock() {
    const CVFileLock::Outcome outcome = mLock.tryLock();
    return outcome == CVFileLock::Outcome::Impossible ? mSpareLock.tryLock() : outcome;
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
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        emit showRequested();
        caller->write(kAnswer);
        caller->flush();
    }
}

bool CVRunningInstance::askOther(const QDeadlineTimer& deadline) const {
    const auto left = [&deadline] { return static_cast<int>(deadline.remainingTime()); };
    for (const QString& place : mSockets) {
        QLocalSocket socket;
        socket.connectToServer(place);
        if (socket.waitForConnected(left()) && socket.waitForReadyRead(left()) && socket.readAll() == kAnswer)
            return true;
    }
    return false;
}
