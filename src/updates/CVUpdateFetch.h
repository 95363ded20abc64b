#pragma once

#include <QNetworkAccessManager>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <memory>

class QNetworkReply;

/// How patient a fetch is, and how much it takes.
struct CVFetchLimits {
    /// Without a byte from the other side.
    std::chrono::milliseconds silence{15'000};
    /// From the first to the last byte.
    std::chrono::milliseconds total{60'000};
    qint64 bytes = qint64(1) << 20;
    int redirects = 5;
};

/// Fetches one address, once, in the thread that it lives in. Only https is spoken, also after a redirect; plain http
/// to this very machine alone, from an address that is such a one itself. Sends no cookies and nothing that names the
/// user, the language or the toolkit.
class CVUpdateFetch final : public QObject {
    Q_OBJECT

public:
    explicit CVUpdateFetch(CVFetchLimits limits = {});
    /// Breaks off a fetch that is under way.
    ~CVUpdateFetch() override;

    /// `userAgent` is what the other side is told of who asks.
    void start(const QUrl& address, const QString& userAgent);

signals:
    /// Once, from the event loop: all bytes of a good answer, or none where there was no such answer or it was too
    /// long.
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
    /// It was plain http to this machine that was asked for.
    bool mIsLocal = false;
};
