#pragma once

#include <QByteArray>
#include <QStringList>

#include <atomic>
#include <mutex>
#include <thread>

/// An HTTP server of this machine, on a thread of its own, that answers every request as it is told. Plain http on a
/// free port of the loopback address.
class UpdateServer final {
public:
    enum class Manner {
        /// The answer, whole.
        Whole,
        /// Half of what was announced, then the connection is closed.
        CutOff,
        /// Half of what was announced, then silence.
        Silent,
        /// The request is taken and never answered.
        Hanging,
        /// A byte now and then, for longer than anybody should wait.
        Dripping,
        /// No length announced and no end.
        Endless
    };

    UpdateServer();
    ~UpdateServer();
    UpdateServer(const UpdateServer&) = delete;
    UpdateServer& operator=(const UpdateServer&) = delete;

    void answerWith(const QByteArray& body, Manner manner = Manner::Whole);
    void answerWithStatus(const QByteArray& status, const QByteArray& body = {});
    void redirectTo(const QByteArray& address);

    /// Of any path on it.
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
