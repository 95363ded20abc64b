#pragma once

#include <QByteArray>
#include <QString>

/// What holds for the reading of any bytes as a data file: it ends, and in one of two ways. Either records came out,
/// which can be sorted and written, and whose text reads back as the same text; or the document holds its defaults and
/// there is a message. Null when all of it held, else a sentence that says what did not.
[[nodiscard]] QString brokenParserProperty(const QByteArray& bytes);
