#pragma once

#include "importing/ofx/CVReadOFX.h"

#include <QByteArray>
#include <QString>

/// A statement of version 1 with these entries: "<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20240301…"
[[nodiscard]] QByteArray OFXWithEntries(const QByteArray& entries);
/// An entry without end tags.
[[nodiscard]] QByteArray OFXEntry(const QByteArray& amount, const QByteArray& type = "OTHER",
                                  const QByteArray& more = "<NAME>Shop");
/// The statement of an account: its number and its entries.
[[nodiscard]] QByteArray OFXAccount(const QByteArray& number, const QByteArray& entries);

/// The lines in one text: "2024/03/01 -1250 Shop | Bread", or "7! why" for one that cannot be read.
[[nodiscard]] QString OFXLinesText(const CVStatement& statement);
/// As above, of a statement without a problem and without a question; else what stands against it.
[[nodiscard]] QString OFXRead(const QByteArray& bytes, const CVStatementMapping& known = {});
