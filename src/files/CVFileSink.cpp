#include "files/CVFileSink.h"

#include <unistd.h>

#include <cerrno>

namespace {

constexpr qint64 kMostHeld = 64 * 1024;

/// Whether the error says that the target does not support syncing (a pipe, a terminal, some file systems), which is no
/// failure.
bool knowsNoSync(int error) {
    return error == EINVAL || error == ENOTSUP || error == EROFS;
}

} // namespace

CVFileSink::CVFileSink(int descriptor) : mDescriptor(descriptor) {
    mHeld.reserve(kMostHeld);
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

CVFileResult CVFileSink::finish() {
    if (drainHeld() && ::fsync(mDescriptor) != 0 && !knowsNoSync(errno))
        mResult = CVFileResult::ofLastCall();
    return mResult;
}

qint64 CVFileSink::readData(char* /*bytes*/, qint64 /*size*/) {
    return -1;
}

qint64 CVFileSink::writeData(const char* bytes, qint64 size) {
    if (mHeld.size() + size > kMostHeld && !drainHeld())
        return -1;
    if (size >= kMostHeld)
        return drain(bytes, size) ? size : -1;
    mHeld.append(bytes, size);
    return mResult.ok() ? size : -1;
}

bool CVFileSink::drainHeld() {
    const bool drained = drain(mHeld.constData(), mHeld.size());
    mHeld.resize(0);
    return drained;
}

/// Calls ::write until all bytes are written or it fails, because one call may write only a part.
bool CVFileSink::drain(const char* bytes, qint64 size) {
    while (mResult.ok() && size > 0) {
        const ssize_t taken = ::write(mDescriptor, bytes, static_cast<std::size_t>(size));
        if (taken > 0) {
            bytes += taken;
            size -= taken;
        } else if (taken == 0) {
            mResult = {qt_error_string(EIO)};
        } else if (errno != EINTR) {
            mResult = CVFileResult::ofLastCall();
        }
    }
    if (!mResult.ok())
        setErrorString(mResult.error);
    return mResult.ok();
}
