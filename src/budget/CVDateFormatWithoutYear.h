#pragma once

#include <QString>

/// A date format without its year and the year's separator, in the percent style ("%m/%d/%y" becomes "%m/%d") or the
/// pattern style ("M/d/yy" becomes "M/d"). A format without a year is returned unchanged.
[[nodiscard]] QString CVDateFormatWithoutYear(const QString& format);
