#pragma once

#include <QByteArray>

#include <span>

/// Pieces of the formats for other programs. All texts are UTF-8.
namespace CVTransferCells {

/// Appends a row of comma-separated text (RFC 4180), with its end.
void appendRow(QByteArray& text, std::span<const QByteArray> cells);
/// A text of JSON, with its quotation marks.
[[nodiscard]] QByteArray quotedInJSON(const QByteArray& text);
/// An amount in JSON: a number, or a text where it has no digits.
[[nodiscard]] QByteArray amountInJSON(double amount);

} // namespace CVTransferCells
