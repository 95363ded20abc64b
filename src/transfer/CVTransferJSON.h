#pragma once

#include "model/CVCollections.h"
#include "transfer/CVTransferProgress.h"

#include <QByteArray>

#include <optional>

class CVDocument;

/// Transactions of the document, in the given order, as JSON for other programs: an array with one object a
/// transaction, each on a line of its own.
///
///     {"date":"2026-11-22","amount":12.5,"category":"","paidTo":"","for":"","tax":false,"flagged":false,"set":""}
///
/// The date of an undated one is null. Amounts are as in `CVTransferValues`, those without digits as strings. Absent
/// when `progress` has ended it.
[[nodiscard]] std::optional<QByteArray> CVTransferJSON(const CVDocument& document, const CVTransactions& transactions,
                                                       const CVTransferProgress& progress = {});
