#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The text of an XML message in UTF-8.
struct CVCAMTText {
    QByteArray utf8 = {};
    /// In which it was written, as `CVEncodingsOfStatements` names it where it is one of them.
    QByteArray encoding = {};
    /// Why there is no text to read; empty when there is.
    QString problem = {};
};

/// Makes UTF-8 of the bytes. Without a given encoding it is the one that the message declares, where the bytes are in
/// it; else the one that they show.
[[nodiscard]] CVCAMTText CVDecodeCAMT(const QByteArray& bytes, const std::optional<QByteArray>& encoding);

/// The beginning of a file of any encoding, without its mark: what can be searched for names of ASCII.
[[nodiscard]] QByteArray CVStartOfCAMT(const QByteArray& bytes, qsizetype most);
