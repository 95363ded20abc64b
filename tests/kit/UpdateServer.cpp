#include "kit/UpdateServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>

namespace {

constexpr int kLookForStop = 20;
constexpr int kPatience = 5000;

bool isReadable(int socket, int milliseconds) {
    pollfd look{socket, POLLIN, 0};
    return poll(&look, 1, milliseconds) > 0;
}

QByteArray readRequest(int connection) {
    QByteArray request;
    std::array<char, 4096> buffer{};
    while (!request.contains("\r\n\r\n") && isReadable(connection, kPatience)) {
        const auto count = recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0)
            break;
        request.append(buffer.data(), count);
    }
    return request;
}

} // namespace

// The server uses plain sockets, because the toolkit's sockets share process-wide state with the code under test.
UpdateServer::UpdateServer() : mSocket(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof local;
    auto* const address = reinterpret_cast<sockaddr*>(&local);
    if (bind(mSocket, address, size) != 0 || listen(mSocket, 8) != 0 || getsockname(mSocket, address, &size) != 0)
        qFatal("no server on this machine");
    mPort = ntohs(local.sin_port);
    mThread = std::thread(&UpdateServer::serve, this);
}

UpdateServer::~UpdateServer() {
    mStopping = true;
    mThread.join();
    close(mSocket);
}

void UpdateServer::answerWith(const QByteArray& body, Manner manner) {
    const std::lock_guard lock(mMutex);
    mStatus = "200 OK";
    mHeaders.clear();
    mBody = body;
    mManner = manner;
}

void UpdateServer::answerWithStatus(const QByteArray& status, const QByteArray& body) {
    answerWith(body);
    const std::lock_guard lock(mMutex);
    mStatus = status;
}

void UpdateServer::redirectTo(const QByteArray& address) {
    answerWith({});
    const std::lock_guard lock(mMutex);
    mStatus = "302 Found";
    mHeaders = "Location: " + address + "\r\n";
}

QString UpdateServer::address(const QString& path) const {
    return QStringLiteral("http://127.0.0.1:%1%2").arg(mPort).arg(path);
}

QStringList UpdateServer::requests() const {
    const std::lock_guard lock(mMutex);
    return mRequests;
}

void UpdateServer::serve() {
    while (!mStopping) {
        if (!isReadable(mSocket, kLookForStop))
            continue;
        const int connection = accept(mSocket, nullptr, nullptr);
        if (connection < 0)
            continue;
        handle(connection);
        close(connection);
    }
}

void UpdateServer::handle(int connection) {
    const QByteArray request = readRequest(connection);
    if (request.isEmpty())
        return;
    QByteArray head;
    QByteArray body;
    Manner manner = Manner::Whole;
    {
        const std::lock_guard lock(mMutex);
        mRequests.append(QString::fromUtf8(request));
        body = mBody;
        manner = mManner;
        head = "HTTP/1.1 " + mStatus + "\r\n" + mHeaders + "Connection: close\r\n";
    }
    if (manner != Manner::Endless)
        head += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    head += "\r\n";
    if (manner != Manner::Hanging)
        send(connection, head);
    if (manner == Manner::Whole)
        send(connection, body);
    else if (manner == Manner::CutOff || manner == Manner::Silent)
        send(connection, body.left(body.size() / 2));
    if (manner == Manner::Whole || manner == Manner::CutOff)
        return;
    for (qsizetype i = 0; sleepUnlessStopped() && !isReadable(connection, 0); ++i) {
        if (manner == Manner::Dripping)
            send(connection, body.mid(i, 1));
        else if (manner == Manner::Endless)
            send(connection, QByteArray(1 << 16, 'x'));
    }
}

/// A failure means that the client has closed the connection, which is allowed.
void UpdateServer::send(int connection, const QByteArray& bytes) const {
    qsizetype sent = 0;
    while (sent < bytes.size() && !mStopping) {
        const auto count =
            ::send(connection, bytes.constData() + sent, static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (count <= 0)
            return;
        sent += count;
    }
}

bool UpdateServer::sleepUnlessStopped() const {
    std::this_thread::sleep_for(std::chrono::milliseconds(kLookForStop));
    return !mStopping;
}

QByteArray updateReply(const QByteArray& release, const QByteArray& beta, const QByteArray& download) {
    const auto entry = [&download](const QByteArray& name, const QByteArray& version) {
        return version.isNull() ? QByteArray()
                                : "<key>" + name + "</key><dict><key>Version</key><string>" + version +
                                      "</string><key>Download</key><string>" + download + "</string></dict>";
    };
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + entry("Release", release) +
           entry("Beta", beta) + "</dict></plist>\n";
}
