#include "start/CVIncomingCall.h"

#include <QLocalSocket>

#include <sys/socket.h>
#include <unistd.h>

namespace {

/// The socket's permissions keep others out already, where its file system has such.
bool isOwn(const QLocalSocket& socket) {
    ucred caller{};
    socklen_t size = sizeof caller;
    const int descriptor = static_cast<int>(socket.socketDescriptor());
    return ::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &caller, &size) == 0 && caller.uid == ::geteuid();
}

} // namespace

CVIncomingCall::CVIncomingCall(QLocalSocket* socket, std::chrono::milliseconds patience, QObject* parent)
    : QObject(parent)
    , mSocket(socket) {
    mSocket->setParent(this);
    mSocket->setReadBufferSize(kLongestMessage + 1);
    connect(mSocket, &QLocalSocket::disconnected, this, &QObject::deleteLater);
    connect(mSocket, &QLocalSocket::readyRead, this, &CVIncomingCall::read);
    connect(&mPatience, &QTimer::timeout, this, &CVIncomingCall::hangUp);
    mPatience.setSingleShot(true);
    mPatience.start(patience);
    // What has come before is read from the event loop too, after the owner has connected its slots.
    if (isOwn(*mSocket))
        QMetaObject::invokeMethod(this, &CVIncomingCall::read, Qt::QueuedConnection);
    else
        hangUp();
}

void CVIncomingCall::read() {
    mMessage += mSocket->read(kLongestMessage + 1 - mMessage.size());
    // A request is met once.
    if (mMessage == kShow && !mIsMet) {
        mIsMet = true;
        emit showRequested();
        mSocket->write(kShown);
        mSocket->flush();
    }
    if (!QByteArray(kShow).startsWith(mMessage))
        hangUp();
}

void CVIncomingCall::hangUp() {
    mSocket->abort();
    deleteLater();
}
