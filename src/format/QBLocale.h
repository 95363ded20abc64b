#pragma once

#include <QLocale>

/// The locale in which the user reads and writes numbers and money. The C and POSIX locales, which have no currency and
/// no customary date form, read as US English.
[[nodiscard]] QLocale QBLocaleInForce();

/// The same for dates, days and months alone: a system may have other settings for them than for all the rest, and
/// either may be C or POSIX without the other.
[[nodiscard]] QLocale QBDateLocaleInForce();
