#pragma once

#include "model/CVCollections.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class CVDocument;

/// Transactions as text for other programs: UTF-8, one line each, in their order, without a header; date, amount, "X"
/// for a taxed one, payee, "for" text and category name, with a tabulator between them and a line feed after each line.
/// Dates and amounts are in the form of the locale in force; texts are written as they are. `progress` is called from
/// time to time with the number of transactions that are done; answering false ends the export, and the result is
/// absent.
[[nodiscard]] std::optional<QByteArray> CVMakeExportText(const CVTransactions& transactions,
                                                         const std::function<bool(std::size_t done)>& progress = {});

/// The forms in which transactions are written for other programs: as `CVMakeExportText` and without loss as
/// `CVTransferCSV` and `CVTransferJSON` have them.
enum class CVExportFormat { List, CSV, JSON };

/// Transactions of the document in one of the forms. `progress` is that of `CVMakeExportText`.
[[nodiscard]] std::optional<QByteArray> CVMakeExport(CVExportFormat format, const CVDocument& document,
                                                     const CVTransactions& transactions,
                                                     const std::function<bool(std::size_t done)>& progress = {});

/// Writes the text to a file; when that fails, the old file stays whole. Refuses to write one of the `spared` files.
/// Absent on success, else the reason.
[[nodiscard]] std::optional<QString> CVWriteExport(const QString& path, const QByteArray& text,
                                                   const QStringList& spared = {});
