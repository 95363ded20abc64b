#pragma once

#include <QByteArray>
#include <QString>

/// Encodes user text for XML and decodes it.

/// Room that `xml_writeEncodedForXML` may need for `text`, in bytes.
[[nodiscard]] qsizetype xml_encodedBound(QStringView text);

/// Writes `text` to `out` as UTF-8, with the ampersand, less-than, greater-than and double quote as predefined entities
/// and everything else as it is, and returns the position after it. A null text writes nothing; a lone surrogate
/// becomes U+FFFD.
[[nodiscard]] char* xml_writeEncodedForXML(char* out, QStringView text);

/// Appends what `xml_writeEncodedForXML` writes.
void xml_appendStringEncodedForXML(QByteArray& target, QStringView text);

/// The text with the predefined entities and character references decoded; an incomplete reference stays as it is.
[[nodiscard]] QString xml_decodedFromXML(const QString& text);

/// The text as it will come back from the file: without the characters that XML cannot carry (controls other than tab
/// and line feed, U+FFFE, U+FFFF, lone surrogates), carriage returns as line feeds. Null stays null.
[[nodiscard]] QString xml_storableText(const QString& text);

/// `xml_storableText` in one line: each line break, with the white space around it, becomes one blank, and none at the
/// ends. A text without line breaks is only made storable.
[[nodiscard]] QString xml_storableLine(const QString& text);
