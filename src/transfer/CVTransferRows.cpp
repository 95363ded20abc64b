#include "transfer/CVTransferRows.h"

bool CVTransferRows::next() {
    mCells.clear();
    while (!mIsBroken && !isAtEnd()) {
        mLine = mNextLine;
        readRow();
        if (!mIsBroken && (mCells.size() > 1 || !mCells.front().isEmpty()))
            return true;
        mCells.clear();
    }
    return false;
}

void CVTransferRows::readRow() {
    mCells.push_back(readCell());
    while (!mIsBroken && !isAtEnd() && mText[mAt] == ',') {
        ++mAt;
        mCells.push_back(readCell());
    }
    skipLineEnd();
}

QByteArray CVTransferRows::readCell() {
    if (!isAtEnd() && mText[mAt] == '"')
        return readQuotedCell();
    const qsizetype first = mAt;
    for (; !endsCell(); ++mAt)
        mIsBroken = mIsBroken || mText[mAt] == '"';
    return mText.sliced(first, mAt - first).toByteArray();
}

/// A quotation mark is written twice within a cell.
QByteArray CVTransferRows::readQuotedCell() {
    QByteArray cell;
    for (++mAt; !isAtEnd(); ++mAt) {
        const char c = mText[mAt];
        if (c == '"') {
            ++mAt;
            if (isAtEnd() || mText[mAt] != '"') {
                mIsBroken = !endsCell();
                return cell;
            }
        }
        mNextLine += c == '\n' ? 1 : 0;
        cell += c;
    }
    mIsBroken = true;
    return cell;
}

void CVTransferRows::skipLineEnd() {
    if (isAtEnd())
        return;
    if (mText[mAt] == '\r' && mAt + 1 < mText.size() && mText[mAt + 1] == '\n')
        ++mAt;
    ++mAt;
    ++mNextLine;
}

bool CVTransferRows::endsCell() const {
    return isAtEnd() || mText[mAt] == ',' || mText[mAt] == '\n' || mText[mAt] == '\r';
}
