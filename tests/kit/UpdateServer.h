#pragma once

#include <QByteArray>
#include <QStringList>

#include <atomic>
#include <mutex>
#include <thread>

/// An HTTP server on a thread of its own that answers every request in the chosen way. The server speaks plain http on
/// a free port of the loopback address.
class UpdateServer final {
public:
    enum class Manner {
        /// The whole answer.
        Whole,
        /// Half of the announced bytes, then the connection is closed.
        CutOff,
        /// Half of the announced bytes, then nothing more.
        Silent,
        /// The request is read and never answered.
        Hanging,
        /// One byte at a time, for longer than the program may wait.
        Dripping,
        /// An answer without a length and without an end.
        Endless
    };

    UpdateServer();
    ~UpdateServer();
    UpdateServer(const UpdateServer&) = delete;
    UpdateServer& operator=(const UpdateServer&) = delete;

    void answerWith(const QByteArray& body, Manner manner = Manner::Whole);
    void answerWithStatus(const QByteArray& status, const QByteArray& body = {});
    void redirectTo(const QByteArray& address);

    /// The address of a path on the server.
    [[nodiscard]] QString address(const QString& path = QStringLiteral("/check")) const;
    /// The requests so far, each with its headers.
    [[nodiscard]] QStringList requests() const;

private:
    void serve();
    void handle(int connection);
    void send(int connection, const QByteArray& bytes) const;
    [[nodiscard]] bool sleepUnlessStopped() const;

    int mSocket = -1;
    quint16 mPort = 0;
    std::atomic<bool> mStopping = false;
    mutable std::mutex mMutex;
    QByteArray mStatus = "200 OK";
    QByteArray mHeaders;
    QByteArray mBody;
    Manner mManner = Manner::Whole;
    QStringList mRequests;
    std::thread mThread;
};

/// A reply in XML with these entries; a null version leaves the entry out.
[[nodiscard]] QByteArray updateReply(const QByteArray& release, const QByteArray& beta = {},
                                     const QByteArray& download = "https://www.quenbylabs.example/download");
