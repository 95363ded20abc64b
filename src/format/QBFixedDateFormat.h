#pragma once

#include <QDateTime>
#include <QString>

/// Time stamps in a format that no locale changes, with the fields of strftime %m %d %y %H %M %S %z and %%.
/// %z is the distance to UTC as +hhmm; two digits of a year are those from 1969 to 2068.

/// In the time zone of `time`.
[[nodiscard]] QString stringWithFixedFormat(QStringView format, const QDateTime& time);

/// The instant that a text in this format names, the local time zone's where the format has no %z. Invalid when the
/// text is of another form or names no time that exists.
[[nodiscard]] QDateTime nsdateWithFixedFormat(QStringView format, QStringView string);
