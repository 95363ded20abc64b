#pragma once

#include "model/CVTransaction.h"

/// Allocates transactions in blocks, which takes less memory and time than one allocation for each. A block is freed,
/// with the texts of all its transactions, once nobody holds any of them. This wastes little memory, because nearly all
/// transactions of a budget live as long as their document.
class CVTransactionBlocks final {
public:
    /// A transaction with nothing set, as from `CVTransaction::initForFileRead`.
    [[nodiscard]] std::shared_ptr<CVTransaction> next();

private:
    std::shared_ptr<CVTransaction[]> mBlock;
    std::size_t mTaken = 0;
};
