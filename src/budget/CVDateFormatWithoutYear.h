#pragma once

#include <QString>

/// A date format without its year and without the separator that the year leaves behind: of the percent style
/// ("%m/%d/%y" becomes "%m/%d") or of the pattern style ("M/d/yy" becomes "M/d"). A format without a year comes back as
/// it is.
[[nodiscard]] QString CVDateFormatWithoutYear(const QString& format);
