#pragma once

#include "transfer/CVReadTransfer.h"

/// Whether the text begins as an array of objects, or as an empty one. It is without a byte-order mark, here and below.
[[nodiscard]] bool CVIsTransferJSON(QByteArrayView text);
/// Reads valid UTF-8 that begins so. See `CVReadTransfer`.
[[nodiscard]] CVTransferredBudget CVReadTransferJSON(QByteArrayView text, const std::function<bool()>& stop);
