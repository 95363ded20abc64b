#include "model/CVTransactionBlocks.h"

namespace {

/// Few enough that a new block stays in the processor's first-level cache until its transactions are filled.
constexpr std::size_t kBlockLength = 128;

} // namespace

std::shared_ptr<CVTransaction> CVTransactionBlocks::next() {
    if (!mBlock || mTaken == kBlockLength) {
        mBlock = CVTransaction::initForFileRead(kBlockLength);
        mTaken = 0;
    }
    return {mBlock, &mBlock[mTaken++]};
}
