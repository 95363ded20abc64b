#include "updates/CVUpdateCheck.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <utility>

CVUpdateCheck::CVUpdateCheck(CVFetchLimits limits) : mLimits(limits) {
    connect(this, &CVUpdateCheck::fetched, this, &CVUpdateCheck::takeReply, Qt::QueuedConnection);
}

CVUpdateCheck::~CVUpdateCheck() {
    cancel();
}

void CVUpdateCheck::start(const QUrl& address, const QString& userAgent) {
    Q_ASSERT(!isRunning());
    mStopping = false;
    mWorker = std::thread(&CVUpdateCheck::work, this, address, userAgent);
}

void CVUpdateCheck::cancel() {
    if (!isRunning())
        return;
    mStopping = true;
    emit stopRequested();
    mWorker.join();
    // A word of it may be on its way; it finds nothing.
    const std::lock_guard lock(mMutex);
    mReply.reset();
}

void CVUpdateCheck::work(const QUrl& address, const QString& userAgent) {
    QByteArray reply;
    {
        CVUpdateFetch fetch(mLimits);
        QEventLoop loop;
        connect(&fetch, &CVUpdateFetch::finished, &loop, [&](const QByteArray& bytes) {
            reply = bytes;
            loop.quit();
        });
        connect(this, &CVUpdateCheck::stopRequested, &loop, &QEventLoop::quit, Qt::QueuedConnection);
        fetch.start(address, userAgent);
        // Whoever stopped before there was anybody to be told has left the flag.
        if (!mStopping)
            loop.exec();
    }
    // Nobody deletes later in a thread whose event loop has ended.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    {
        const std::lock_guard lock(mMutex);
        mReply = std::move(reply);
    }
    emit fetched();
}

void CVUpdateCheck::takeReply() {
    std::optional<QByteArray> reply;
    {
        const std::lock_guard lock(mMutex);
        reply = std::exchange(mReply, std::nullopt);
    }
    if (!reply)
        return;
    mWorker.join();
    emit finished(*reply);
}
