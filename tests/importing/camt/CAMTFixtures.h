#pragma once

#include "importing/CVReadStatement.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// "2024/03/12|-1250|payee|purpose|bank's number" for each line, or "!why" for an entry that cannot be read.
[[nodiscard]] QString camtLinesOf(const CVStatement& statement);

/// A message with these statements.
[[nodiscard]] QByteArray camtDocument(const QByteArray& statements, const QByteArray& version = "02");

/// A statement of Ann Owner's account.
[[nodiscard]] QByteArray camtStatement(const QByteArray& entries, const QByteArray& number = "DE11",
                                       const QByteArray& currency = "EUR");

/// An entry of 12.50 out, with `more` in it.
[[nodiscard]] QByteArray camtEntry(const QByteArray& more);
/// Such an entry, with one payment.
[[nodiscard]] QByteArray camtEntryOfPart(const QByteArray& part);

/// Reads a message with one statement with these entries.
[[nodiscard]] CVStatement readCAMTEntries(const QByteArray& entries);

struct CAMTRow {
    QByteArray entries;
    const char* lines;
};

/// Reads the entries of each row without help and expects its lines.
void expectCAMTRows(const std::vector<CAMTRow>& rows);
