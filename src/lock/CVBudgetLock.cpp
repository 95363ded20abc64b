#include "lock/CVBudgetLock.h"

#include "files/CVFileSink.h"
#include "files/CVReplaceFile.h"
#include "files/CVTemporaryFile.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace {

/// Whoever may look into the folder may know who has the budget open.
constexpr unsigned kReadable = 0644;
constexpr qint64 kMostBytes = 8192;
/// Another program has the lock in its hands for a moment only.
constexpr int kMostRounds = 100;
constexpr unsigned long kPause = 10;
constexpr int kUsualFlags = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

QString lockOf(const QString& dataFile) {
    const QString followed = CVFollowLinks(dataFile);
    const QFileInfo file(followed.isEmpty() ? dataFile : followed);
    return QStringLiteral("%1/.%2.lock").arg(file.absolutePath(), CVTemporaryFile::shortened(file.fileName()));
}

CVFileResult writeTo(int descriptor, const QByteArray& bytes) {
    CVFileSink sink(descriptor);
    sink.write(bytes);
    return sink.finish();
}

/// The present time by the clock of the file server: that of a file that is made just now.
std::optional<std::chrono::seconds> clockBeside(const QString& path) {
    const CVTemporaryFile file(path, kReadable);
    struct stat facts {};
    if (!file.opened().ok() || ::fstat(file.descriptor(), &facts) != 0)
        return std::nullopt;
    return std::chrono::seconds(facts.st_mtim.tv_sec);
}

/// Whether a failed call says that the file system knows no such thing.
bool isUnsupported(int error) {
    return CVFileResult::isUnknownCall(error) || error == EOPNOTSUPP || error == EMLINK;
}

} // namespace

/// What stands in the place of the lock.
struct CVBudgetLock::Found {
    bool isThere = false;
    struct stat facts {};
    /// Null when it cannot be opened.
    std::unique_ptr<QFile> file = nullptr;
    std::optional<CVLockHolder> holder = {};
    /// The time since the last sign of life; absent until it is needed.
    std::optional<std::chrono::seconds> age = {};

    [[nodiscard]] QDateTime lastSign() const {
        return age ? QDateTime::currentDateTime().addSecs(-age->count())
                   : QDateTime::fromSecsSinceEpoch(facts.st_mtim.tv_sec);
    }
    [[nodiscard]] bool isStillAt(const QByteArray& path) const {
        struct stat present {};
        return ::lstat(path.constData(), &present) == 0 && present.st_dev == facts.st_dev &&
               present.st_ino == facts.st_ino && present.st_mtim.tv_sec == facts.st_mtim.tv_sec &&
               present.st_mtim.tv_nsec == facts.st_mtim.tv_nsec;
    }
};

CVBudgetLock::CVBudgetLock(const QString& dataFile, CVLockHolder self)
    : mPath(lockOf(dataFile))
    , mSelf(std::move(self)) {}

CVBudgetLock::Attempt CVBudgetLock::take(Doubt doubt) {
    const bool isHere = isOnTheSameDisk();
    for (int round = 0; round < kMostRounds; ++round) {
        Found found = look();
        Step step = Step::Done;
        if (!found.isThere) {
            step = isHere ? make() : Step::Impossible;
        } else {
            const CVLockState state = judge(found);
            if (state == CVLockState::Alive)
                return {Outcome::Held, found.holder, found.lastSign()};
            if (state == CVLockState::Unknown && doubt == Doubt::Respected)
                return {Outcome::Doubtful, found.holder, found.lastSign()};
            if (state == CVLockState::Own)
                giveSign(found);
            else
                step = replace(found);
        }
        if (step != Step::Overtaken)
            return {step == Step::Done ? Outcome::Taken : Outcome::Impossible};
        QThread::msleep(kPause);
    }
    return {Outcome::Doubtful};
}

bool CVBudgetLock::isOnTheSameDisk() {
    const auto folder = CVFileSignature::of(QFileInfo(mPath).absolutePath());
    if (!mDisk && folder)
        mDisk = folder->device;
    return !folder || folder->device == mDisk;
}

void CVBudgetLock::release() {
    const Found found = look();
    if (found.holder && found.holder->token == mSelf.token && guard(found))
        ::unlink(QFile::encodeName(mPath).constData());
}

void CVBudgetLock::removeLeftovers() const {
    const QFileInfo lock(mPath);
    for (const CVTemporaryFile::Leftover& left : CVTemporaryFile::leftIn(lock.absolutePath())) {
        if (left.madeFor == CVTemporaryFile::shortened(lock.fileName()))
            QFile::remove(left.path);
    }
}

/// Follows no link, because a link may lead to somebody's file.
CVBudgetLock::Found CVBudgetLock::look() const {
    const QByteArray path = QFile::encodeName(mPath);
    Found found;
    int descriptor = ::open(path.constData(), O_RDWR | kUsualFlags);
    if (descriptor < 0 && errno != ENOENT)
        descriptor = ::open(path.constData(), O_RDONLY | kUsualFlags);
    if (descriptor < 0) {
        found.isThere = ::lstat(path.constData(), &found.facts) == 0;
        return found;
    }
    found.isThere = true;
    if (::fstat(descriptor, &found.facts) != 0 || !S_ISREG(found.facts.st_mode)) {
        ::close(descriptor);
        return found;
    }
    found.file = std::make_unique<QFile>();
    if (found.file->open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        found.holder = CVLockHolder::parse(found.file->read(kMostBytes));
    return found;
}

/// Asks for the server's clock only where that matters, because a file is made for it.
CVLockState CVBudgetLock::judge(Found& found) const {
    const auto process =
        found.holder ? CVLookAtProcess(found.holder->process, found.holder->started) : CVProcessState::Unknown;
    const CVLockState state = CVJudgeLock(found.holder, mSelf, process, found.age);
    if (state != CVLockState::Unknown)
        return state;
    if (const auto now = clockBeside(mPath))
        found.age = *now - std::chrono::seconds(found.facts.st_mtim.tv_sec);
    return CVJudgeLock(found.holder, mSelf, process, found.age);
}

CVBudgetLock::Step CVBudgetLock::make() const {
    CVTemporaryFile file(mPath, kReadable);
    if (!file.opened().ok() || !writeTo(file.descriptor(), mSelf.render()).ok())
        return Step::Impossible;
    const QByteArray fresh = QFile::encodeName(file.path());
    const QByteArray path = QFile::encodeName(mPath);
    if (::link(fresh.constData(), path.constData()) == 0)
        return Step::Done;
    if (isUnsupported(errno)) {
        if (::renameat2(AT_FDCWD, fresh.constData(), AT_FDCWD, path.constData(), RENAME_NOREPLACE) == 0) {
            file.release();
            return Step::Done;
        }
        if (isUnsupported(errno))
            return makeInPlace();
    }
    return errno == EEXIST ? Step::Overtaken : Step::Impossible;
}

/// A kill between the calls leaves an empty lock, which nobody can judge for five minutes.
CVBudgetLock::Step CVBudgetLock::makeInPlace() const {
    const QByteArray path = QFile::encodeName(mPath);
    const int descriptor = ::open(path.constData(), O_RDWR | O_CREAT | O_EXCL | kUsualFlags, kReadable);
    if (descriptor < 0)
        return errno == EEXIST ? Step::Overtaken : Step::Impossible;
    const bool isWritten = writeTo(descriptor, mSelf.render()).ok();
    if (!isWritten)
        ::unlink(path.constData());
    ::close(descriptor);
    return isWritten ? Step::Done : Step::Impossible;
}

/// Puts this program's lock in the place of one that counts no longer.
CVBudgetLock::Step CVBudgetLock::replace(const Found& found) const {
    CVTemporaryFile file(mPath, kReadable);
    if (!file.opened().ok() || !writeTo(file.descriptor(), mSelf.render()).ok())
        return Step::Impossible;
    if (!guard(found))
        return Step::Overtaken;
    if (::rename(QFile::encodeName(file.path()).constData(), QFile::encodeName(mPath).constData()) != 0)
        return Step::Impossible;
    file.release();
    return Step::Done;
}

/// Claims the right to remove or replace the lock that was found, until it is closed; false when another program does
/// so in this moment, or has done it, or when the lock has shown a sign of life since. Whoever removes or replaces a
/// lock asks here first, so that of two programs one alone does it: the kernel's lock on the file that is there
/// decides. Where a file system knows no such locks, two programs of the same moment may both go on; the one that is no
/// longer there notices at its next sign of life.
bool CVBudgetLock::guard(const Found& found) const {
    if (found.file && ::flock(found.file->handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return false;
    return found.isStillAt(QFile::encodeName(mPath));
}

/// Writes the same bytes once more, because then the file server sets the time.
void CVBudgetLock::giveSign(const Found& found) const {
    const QByteArray bytes = mSelf.render();
    const int descriptor = found.file->handle();
    if (::pwrite(descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()), 0) < 0)
        ::futimens(descriptor, nullptr);
}
