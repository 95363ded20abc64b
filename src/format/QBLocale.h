#pragma once

#include <QLocale>

/// The locale in which the user reads and writes numbers and money. US English stands in for the C and POSIX locales,
/// which have no currency and no customary date form.
[[nodiscard]] QLocale QBLocaleInForce();

/// The locale in which the user reads and writes dates, days and months. Dates have a locale of their own because a
/// system may have other settings for dates, and either locale may be C or POSIX without the other.
[[nodiscard]] QLocale QBDateLocaleInForce();
