#pragma once

#include <QByteArray>
#include <QString>

/// What holds for any text that is read as a number of the data file: the C library reads the same number, what is
/// written of it is what the C library writes, and that reads back as itself. Null when all of it held, else a sentence
/// that says what did not.
[[nodiscard]] QString brokenNumberProperty(const QByteArray& text);
