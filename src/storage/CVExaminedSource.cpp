#include "storage/CVExaminedSource.h"

#include <QIODevice>

#include <algorithm>
#include <utility>

CVExaminedSource::CVExaminedSource(QIODevice& device, std::function<bool(double part)> progress)
    : mDevice(device)
    , mProgress(std::move(progress)) {
    if (!device.isSequential())
        mSize = device.size() - device.pos();
}

void CVExaminedSource::examineStart() {
    while (mExamination.isTooShort() && !mIsAtEnd && mStop == Stop::None)
        readPiece();
}

qsizetype CVExaminedSource::read(char* buffer, qsizetype size) {
    qsizetype filled = 0;
    while (filled < size && mStop == Stop::None && (mTaken < mPiece.size() || !mIsAtEnd)) {
        if (mTaken == mPiece.size())
            readNextPiece();
        const qsizetype count = std::min(size - filled, mPiece.size() - mTaken);
        std::copy_n(mPiece.constData() + mTaken, count, buffer + filled);
        mTaken += count;
        filled += count;
    }
    return mStop == Stop::None ? filled : 0;
}

QByteArray CVExaminedSource::readAll() {
    while (!mIsAtEnd && mStop == Stop::None)
        readPiece();
    QByteArray rest = mPiece.sliced(mTaken);
    mTaken = mPiece.size();
    return rest;
}

void CVExaminedSource::examineRest() {
    while (!mIsAtEnd && mStop == Stop::None)
        readNextPiece();
}

/// Replaces the pieces that have been handed out by the next one.
void CVExaminedSource::readNextPiece() {
    mPiece.resize(0);
    mTaken = 0;
    readPiece();
}

/// Adds the next piece to those that have not been handed out.
void CVExaminedSource::readPiece() {
    if (mRead > 0 && !reportProgress()) {
        mStop = Stop::Cancelled;
        return;
    }
    const qsizetype known = mPiece.size();
    mPiece.resize(known + kPieceSize);
    const qint64 count = mDevice.read(mPiece.data() + known, kPieceSize);
    mPiece.resize(known + std::max<qint64>(count, 0));
    mIsAtEnd = count == 0;
    mRead += mPiece.size() - known;
    mExamination.add(QByteArrayView(mPiece).sliced(known));
    if (count < 0) {
        mStop = Stop::ReadError;
        mReadError = mDevice.errorString();
    } else if (mRead > kLargestFile) {
        mStop = Stop::ReadError;
        mReadError = tr("the file is larger than 2 GiB");
    } else if (mExamination.hasAbsurdElement()) {
        mStop = Stop::AbsurdElement;
    }
}

bool CVExaminedSource::reportProgress() const {
    if (!mProgress || !mSize)
        return true;
    // A file that grows while it is read has more bytes than it had at first.
    return mProgress(std::min(1.0, static_cast<double>(mRead) / static_cast<double>(*mSize)));
}
