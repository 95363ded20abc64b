#pragma once

#include <QNetworkAccessManager>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <memory>

class QNetworkReply;

/// The limits of a fetch in time, size and redirects.
struct CVFetchLimits {
    /// The longest time without a byte from the server.
    std::chrono::milliseconds silence{15'000};
    /// The longest time for the whole fetch.
    std::chrono::milliseconds total{60'000};
    qint64 bytes = qint64(1) << 20;
    int redirects = 5;
};

/// Fetches one address, once, in its own thread. Only https is allowed, also after a redirect; plain http is allowed to
/// this machine only, and after a redirect only when the fetch began there. Sends no cookies and nothing that names the
/// user, the language or the toolkit.
class CVUpdateFetch final : public QObject {
    Q_OBJECT

public:
    explicit CVUpdateFetch(CVFetchLimits limits = {});
    /// Aborts a fetch that is under way.
    ~CVUpdateFetch() override;

    /// `userAgent` names the program to the server.
    void start(const QUrl& address, const QString& userAgent);

signals:
    /// Emitted once, from the event loop, with all bytes of a good reply; with no bytes when there was none or it was
    /// too long.
    void finished(const QByteArray& bytes);

private:
    void checkRedirect(const QUrl& target);
    void takeBytes();
    void finish();

    CVFetchLimits mLimits;
    QNetworkAccessManager mManager;
    QTimer mDeadline;
    QNetworkReply* mReply = nullptr;
    QByteArray mBytes;
    /// Whether the fetch began with plain http to this machine.
    bool mIsLocal = false;
};
