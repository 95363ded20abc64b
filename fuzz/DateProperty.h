#pragma once

#include <QByteArray>
#include <QString>

/// What holds for any text that is typed as a date, in the locale that the first two bytes choose: it names a day of
/// the years 0 to 9999 or none; a day that it names is written as a text that reads back as the same day. Null when all
/// of it held, else a sentence that says what did not.
[[nodiscard]] QString brokenDateProperty(const QByteArray& bytes);
