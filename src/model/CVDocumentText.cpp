#include "model/CVDocumentText.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

/// Large enough that a document of a million lines has few pieces, small enough that a block of replaced lines is soon
/// freed.
constexpr qsizetype kBlockSize = qsizetype(1) << 20;
constexpr qsizetype kFirstBlockSize = 512;

} // namespace

void CVTextArena::makeRoom(qsizetype bound) {
    const qsizetype needed = (mBlock ? mBlock->bytes.size() : 0) + bound;
    if (mBlock && needed <= mBlock->bytes.capacity())
        return;
    // The first block grows, so that the text of a single changed line does not hold a megabyte.
    if (mBlock && needed <= kBlockSize) {
        mBlock->bytes.reserve(std::min(std::max(needed, 2 * mBlock->bytes.capacity()), kBlockSize));
        return;
    }
    const qsizetype size = std::max(bound, mBlock ? kBlockSize : kFirstBlockSize);
    mBlock = new CVTextBlock;
    mBlock->bytes.reserve(size);
}

void CVDocumentText::append(const CVTextSlice& slice) {
    if (slice.length == 0)
        return;
    mSize += slice.length;
    if (!mPieces.empty()) {
        CVTextSlice& last = mPieces.back();
        const bool adjoins = last.block == slice.block && last.offset + last.length == slice.offset;
        if (adjoins && slice.length <= std::numeric_limits<quint32>::max() - last.length) {
            last.length += slice.length;
            return;
        }
    }
    mPieces.push_back(slice);
}

QByteArray CVDocumentText::joined() const {
    QByteArray text(mSize, Qt::Uninitialized);
    char* out = text.data();
    for (const CVTextSlice& piece : mPieces)
        out = std::copy_n(piece.bytes().data(), piece.length, out);
    return text;
}
