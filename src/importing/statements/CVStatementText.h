#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <optional>

/// The text of a statement.
struct CVStatementText {
    /// As `CVEncodingsOfStatements` names it.
    QByteArray encoding = {};
    QString text = {};
    /// Why the bytes are no text; empty when they are.
    QString problem = {};
};

/// The encodings in which banks write, the usual ones first.
[[nodiscard]] const QByteArrayList& CVEncodingsOfStatements();

/// Makes text of the bytes. Without a given encoding: by the mark at the beginning, as UTF-16 by the NULs, as UTF-8
/// where all of it is valid, else in the code page in which the most headings are words, the locale's own first.
[[nodiscard]] CVStatementText CVDecodeStatement(const QByteArray& bytes, const std::optional<QByteArray>& encoding);

/// Why the text is no table of separated values: it is a statement of another kind, which cannot be read. Empty
/// otherwise.
[[nodiscard]] QString CVProblemOfOtherKind(const QString& text);
