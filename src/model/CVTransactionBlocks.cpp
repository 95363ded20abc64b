#include "model/CVTransactionBlocks.h"

namespace {

/// Few enough to be in the processor's nearest cache from the making of the block until they are filled.
constexpr std::size_t kBlockLength = 128;

} // namespace

std::shared_ptr<CVTransaction> CVTransactionBlocks::next() {
    if (!mBlock || mTaken == kBlockLength) {
        mBlock = CVTransaction::initForFileRead(kBlockLength);
        mTaken = 0;
    }
    return {mBlock, &mBlock[mTaken++]};
}
