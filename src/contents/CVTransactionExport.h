#pragma once

#include "model/CVDocument.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// Transactions as text for other programs: UTF-8, one line each, in their order, without a header; date, amount, "X"
/// for a taxed one, payee, "for" text and category name, with a tabulator between them and a line feed behind each
/// line. Dates and amounts are written as the locale in force has them; texts as they are. `progress` hears now and
/// then how many are done, and ends the export by answering false: the result is then absent.
[[nodiscard]] std::optional<QByteArray>
CVExportedTransactions(const CVDocument::Transactions& transactions,
                       const std::function<bool(std::size_t done)>& progress = {});

/// Writes the text to a file, which stands there whole or as it was, and is none of the `spared` ones; absent when that
/// succeeded, else the reason.
[[nodiscard]] std::optional<QString> CVWriteExport(const QString& path, const QByteArray& text,
                                                   const QStringList& spared = {});
