#include "updates/CVUpdateFetch.h"

#include <QHostAddress>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace {

bool isThisMachine(const QUrl& address) {
    return address.host() == QLatin1String("localhost") || QHostAddress(address.host()).isLoopback();
}

bool isPlainLocal(const QUrl& address) {
    return address.scheme() == QLatin1String("http") && isThisMachine(address);
}

bool isSecure(const QUrl& address) {
    return address.scheme() == QLatin1String("https") && !address.host().isEmpty();
}

QNetworkRequest requestFor(const QUrl& address, const QString& userAgent, const CVFetchLimits& limits) {
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
    // Replaces the header that the toolkit would send, which names the user's language.
    request.setRawHeader("Accept-Language", "*");
    // Asks for no compressed reply, because a small one could unpack into a very large one.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(limits.redirects);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setTransferTimeout(static_cast<int>(limits.silence.count()));
    return request;
}

} // namespace

CVUpdateFetch::CVUpdateFetch(CVFetchLimits limits) : mLimits(limits) {
    mDeadline.setSingleShot(true);
}

CVUpdateFetch::~CVUpdateFetch() {
    if (!mReply)
        return;
    mReply->disconnect(this);
    mReply->abort();
}

void CVUpdateFetch::start(const QUrl& address, const QString& userAgent) {
    if (!isSecure(address) && !isPlainLocal(address)) {
        mDeadline.callOnTimeout(this, [this] { emit finished({}); });
        mDeadline.start(0);
        return;
    }
    mIsLocal = isPlainLocal(address);
    mReply = mManager.get(requestFor(address, userAgent, mLimits));
    connect(mReply, &QNetworkReply::redirected, this, &CVUpdateFetch::checkRedirect);
    connect(mReply, &QNetworkReply::readyRead, this, &CVUpdateFetch::takeBytes);
    connect(mReply, &QNetworkReply::finished, this, &CVUpdateFetch::finish);
    mDeadline.callOnTimeout(mReply, &QNetworkReply::abort);
    mDeadline.start(mLimits.total);
}

void CVUpdateFetch::checkRedirect(const QUrl& target) {
    const QUrl address = mReply->url().resolved(target);
    if (isSecure(address) || (isPlainLocal(address) && mIsLocal))
        emit mReply->redirectAllowed();
    else
        mReply->abort();
}

void CVUpdateFetch::takeBytes() {
    mBytes += mReply->read(mLimits.bytes + 1 - mBytes.size());
    if (mBytes.size() > mLimits.bytes)
        mReply->abort();
}

void CVUpdateFetch::finish() {
    const bool isGood = mReply->error() == QNetworkReply::NoError;
    if (isGood)
        takeBytes();
    mDeadline.stop();
    emit finished(isGood && mBytes.size() <= mLimits.bytes ? mBytes : QByteArray());
}
