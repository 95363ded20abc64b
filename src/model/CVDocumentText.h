#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <memory>
#include <vector>

/// A run of bytes in a block of rendered text that others may share. Null until something was rendered. A block never
/// changes once the arena that made it is gone, so a slice can be read on another thread.
struct CVTextSlice {
    std::shared_ptr<const QByteArray> block;
    quint32 offset = 0;
    quint32 length = 0;

    [[nodiscard]] bool isNull() const { return !block; }
    [[nodiscard]] QByteArrayView bytes() const {
        return isNull() ? QByteArrayView() : QByteArrayView(block->constData() + offset, length);
    }
};

/// Room for texts that are rendered one after the other: neighbours lie side by side in one block, as far as it
/// reaches.
class CVTextArena final {
public:
    /// Lets `write` (char* start -> char* end) put at most `bound` bytes and returns where they lie.
    template <typename Writer>
    [[nodiscard]] CVTextSlice add(qsizetype bound, Writer write) {
        makeRoom(bound);
        const qsizetype offset = mBlock->size();
        mBlock->resize(offset + bound);
        const char* const end = write(mBlock->data() + offset);
        mBlock->resize(end - mBlock->constData());
        return {mBlock, static_cast<quint32>(offset), static_cast<quint32>(mBlock->size() - offset)};
    }

private:
    void makeRoom(qsizetype bound);

    std::shared_ptr<QByteArray> mBlock;
};

/// The text of a whole document as slices in order. Copying it copies no text: a snapshot costs its pieces, and texts
/// that were rendered side by side are one piece.
class CVDocumentText final {
public:
    void append(const CVTextSlice& slice);
    /// In bytes.
    [[nodiscard]] qsizetype size() const { return mSize; }
    [[nodiscard]] const std::vector<CVTextSlice>& pieces() const { return mPieces; }
    [[nodiscard]] QByteArray joined() const;

private:
    std::vector<CVTextSlice> mPieces;
    qsizetype mSize = 0;
};
