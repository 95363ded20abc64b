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
    // A queued `fetched` of this check may still arrive; it finds no reply.
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
        // A stop that came before the connection above left only the flag.
        if (!mStopping)
            loop.exec();
    }
    // `deleteLater` has no effect in a thread whose event loop has ended, so its objects are deleted here.
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
