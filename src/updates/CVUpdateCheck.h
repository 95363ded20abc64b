#pragma once

#include "updates/CVUpdateFetch.h"

#include <QObject>
#include <QUrl>

#include <atomic>
#include <mutex>
#include <optional>
#include <thread>

/// One check at a time, on a thread of its own that ends with it. The reply comes back through the event loop of the
/// thread that this object lives in; whoever takes it stores it there. Cancelling and destroying end the thread
/// without waiting for the other side.
class CVUpdateCheck final : public QObject {
    Q_OBJECT

public:
    explicit CVUpdateCheck(CVFetchLimits limits = {});
    ~CVUpdateCheck() override;

    /// Not while one is under way.
    void start(const QUrl& address, const QString& userAgent);
    /// No reply comes from then on.
    void cancel();
    [[nodiscard]] bool isRunning() const { return mWorker.joinable(); }

signals:
    /// The bytes of the reply, none when there was no good one.
    void finished(const QByteArray& reply);
    /// The worker's own word, on its way here.
    void fetched();
    /// To the worker.
    void stopRequested();

private:
    void work(const QUrl& address, const QString& userAgent);
    void takeReply();

    CVFetchLimits mLimits;
    std::atomic<bool> mStopping = false;
    std::mutex mMutex;
    /// Handed over by the worker.
    std::optional<QByteArray> mReply;
    std::thread mWorker;
};
