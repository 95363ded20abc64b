#pragma once

#include "model/CVCollections.h"
#include "transfer/CVTransferProgress.h"

#include <QByteArray>

#include <array>
#include <optional>

class CVDocument;

/// The words of the header, which are the same in every language.
inline constexpr std::array kCVTransferColumns{"Date", "Amount", "Category", "Paid To", "For", "Tax", "Flagged", "Set"};

/// Transactions of the document, in the given order, as comma-separated text (RFC 4180) for other programs: UTF-8
/// without a mark, a header, CRLF after each line, days and amounts as in `CVTransferValues`, "yes" or nothing for the
/// flags. Absent when `progress` has ended it.
[[nodiscard]] std::optional<QByteArray> CVTransferCSV(const CVDocument& document, const CVTransactions& transactions,
                                                      const CVTransferProgress& progress = {});
