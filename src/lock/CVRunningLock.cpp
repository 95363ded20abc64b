#include "lock/CVRunningLock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr QLatin1StringView kLock("/.running.lock");
constexpr QLatin1StringView kSpareName("/corvella-");
constexpr QLatin1StringView kSpareLock(".lock");
constexpr int kDigestLetters = 16;

} // namespace

CVRunningLock::CVRunningLock(const QString& folder, const QString& runtimeFolder)
    : mLock(folder + kLock)
    , mSpareLock(runtimeFolder.isEmpty() ? QString() : sparePath(folder, runtimeFolder) + kSpareLock) {}

CVFileLock::Outcome CVRunningLock::tryLock() {
    const CVFileLock::Outcome outcome = mLock.tryLock();
    return outcome == CVFileLock::Outcome::Impossible ? mSpareLock.tryLock() : outcome;
}

QString CVRunningLock::sparePath(const QString& folder, const QString& runtimeFolder) {
    if (runtimeFolder.isEmpty())
        return {};
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    const QByteArray name = QFile::encodeName(canonical.isEmpty() ? QDir::cleanPath(folder) : canonical);
    const QByteArray digest = QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex();
    return runtimeFolder + kSpareName + QString::fromLatin1(digest.first(kDigestLetters));
}
