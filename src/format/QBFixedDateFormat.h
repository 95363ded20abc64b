#pragma once

#include <QDateTime>
#include <QString>

/// Time stamps in a format that no locale changes, with the fields of strftime %m %d %y %H %M %S %z and %%. %z is the
/// offset from UTC as +hhmm; the two digits of %y stand for the years 1969 to 2068.

/// Writes `time` in its own time zone.
[[nodiscard]] QString stringWithFixedFormat(QStringView format, const QDateTime& time);

/// The instant that a text in this format names, in the local time zone where the format has no %z. Invalid when the
/// text has another form or names a time that does not exist.
[[nodiscard]] QDateTime nsdateWithFixedFormat(QStringView format, QStringView string);
