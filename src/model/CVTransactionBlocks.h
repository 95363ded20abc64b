#pragma once

#include "model/CVTransaction.h"

/// Makes transactions for whoever makes very many: they lie side by side in blocks, which takes less memory and time
/// than to allocate each. A block, with the texts of all its transactions, is free once nobody holds any of them. That
/// is fine because a budget's transactions go together, with their document: the few that are removed before occupy
/// little.
class CVTransactionBlocks final {
public:
    /// A transaction with nothing set, as from `CVTransaction::initForFileRead`.
    [[nodiscard]] std::shared_ptr<CVTransaction> next();

private:
    std::shared_ptr<CVTransaction[]> mBlock;
    std::size_t mTaken = 0;
};
