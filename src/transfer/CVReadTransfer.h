#pragma once

#include "model/CVDetachedDocument.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

/// Transactions that were written for other programs, as a budget of their own.
struct CVTransferredBudget {
    /// Null when there is a problem, or when the reading was stopped. Holds the sets and categories that transactions
    /// name, in the order in which they occur, the transactions in the document's order, and nothing else. What names
    /// no set or no category has the ID 0. No text is null.
    std::shared_ptr<CVDetachedDocument> budget = nullptr;
    /// Why they cannot be read, one sentence; empty otherwise.
    QString problem = {};
};

/// Whether the bytes are comma-separated text with the header of `CVTransferCSV`, or JSON that begins as an array of
/// objects.
[[nodiscard]] bool CVIsTransfer(const QByteArray& bytes);

/// Reads what `CVTransferCSV` or `CVTransferJSON` has written. One line that cannot be read is a problem of all.
/// `stop` is asked every now and then; answering true ends the reading. On any thread.
[[nodiscard]] CVTransferredBudget CVReadTransfer(const QByteArray& bytes, const std::function<bool()>& stop = {});
