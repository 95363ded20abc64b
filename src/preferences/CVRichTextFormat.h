#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A stretch of text in one style. Line breaks are line feeds.
struct CVTextRun {
    QString text;
    bool bold = false;

    friend bool operator==(const CVTextRun&, const CVTextRun&) = default;
};

/// The text of a document in the rich text format: characters (also \'hh in Windows-1252 and \uN), ends of paragraphs
/// and lines, tabs and bold type. All other control words are skipped. Absent when the bytes are not rich text or are
/// cut off.
[[nodiscard]] std::optional<QList<CVTextRun>> CVReadRichText(const QByteArray& bytes);
