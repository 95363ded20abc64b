#include "storage/TroubledDevice.h"

#include <algorithm>
#include <utility>

TroubledDevice::TroubledDevice(QByteArray bytes, Troubles troubles) : mBytes(std::move(bytes)), mTroubles(troubles) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

bool TroubledDevice::seek(qint64 offset) {
    mAt = offset;
    return QIODevice::seek(offset);
}

qint64 TroubledDevice::readData(char* data, qint64 size) {
    if (mAt >= mTroubles.failsAt) {
        setErrorString(qt_error_string(EIO));
        return -1;
    }
    if (mTroubles.isEndless && mAt == mBytes.size())
        mAt = 0;
    const qint64 end = std::min<qint64>(mBytes.size(), mTroubles.failsAt);
    const qint64 count = std::min({size, mTroubles.most, end - mAt});
    std::copy_n(mBytes.constData() + mAt, count, data);
    mAt += count;
    mBytes.truncate(std::max(mAt, std::min<qint64>(mBytes.size(), mTroubles.cutTo)));
    return count;
}
