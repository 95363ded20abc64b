#pragma once

#include "updates/CVUpdateFetch.h"

#include <QObject>
#include <QUrl>

#include <atomic>
#include <mutex>
#include <optional>
#include <thread>

/// Runs one check at a time, each on its own thread. The reply comes through the event loop of this object's thread,
/// where the receiver stores it. Cancelling and destroying end the check's thread without waiting for the network.
class CVUpdateCheck final : public QObject {
    Q_OBJECT

public:
    explicit CVUpdateCheck(CVFetchLimits limits = {});
    ~CVUpdateCheck() override;

    /// Must not be called while a check is under way.
    void start(const QUrl& address, const QString& userAgent);
    /// `finished` is not emitted after this.
    void cancel();
    [[nodiscard]] bool isRunning() const { return mWorker.joinable(); }

signals:
    /// Carries the bytes of the reply; no bytes when there was no usable reply.
    void finished(const QByteArray& reply);
    /// Emitted by the worker thread when the reply is there.
    void fetched();
    /// Tells the worker thread to stop.
    void stopRequested();

private:
    void work(const QUrl& address, const QString& userAgent);
    void takeReply();

    CVFetchLimits mLimits;
    std::atomic<bool> mStopping = false;
    std::mutex mMutex;
    /// The reply that the worker thread left; guarded by `mMutex`.
    std::optional<QByteArray> mReply;
    std::thread mWorker;
};
