#pragma once

#include <QByteArray>
#include <QString>

/// What holds for the reading of any bytes as a property list: it ends, and no text and no key that comes out holds a
/// NUL. Null when it held, else a sentence that says what did not.
[[nodiscard]] QString brokenListProperty(const QByteArray& bytes);
