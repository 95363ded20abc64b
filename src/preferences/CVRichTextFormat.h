#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A stretch of text in one style; line ends are line feeds.
struct CVTextRun {
    QString text;
    bool bold = false;

    friend bool operator==(const CVTextRun&, const CVTextRun&) = default;
};

/// The text of a document in the rich text format: its characters (also as \'hh of Windows-1252 and as \uN), ends of
/// paragraphs and lines, tabs and bold type. Everything else of the format is passed over. Absent when the bytes are
/// none such, or break off.
[[nodiscard]] std::optional<QList<CVTextRun>> CVReadRichText(const QByteArray& bytes);
