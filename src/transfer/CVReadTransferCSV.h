#pragma once

#include "transfer/CVReadTransfer.h"

/// Whether the first row is the header of `CVTransferCSV`. The text is without a byte-order mark, here and below.
[[nodiscard]] bool CVIsTransferCSV(QByteArrayView text);
/// Reads valid UTF-8 that has the header. See `CVReadTransfer`.
[[nodiscard]] CVTransferredBudget CVReadTransferCSV(QByteArrayView text, const std::function<bool()>& stop);
