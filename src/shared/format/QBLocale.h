#pragma once

#include <QLocale>

/// The locale in which the user reads and writes numbers and dates. The C and POSIX locales, which have no currency and
/// no customary date form, read as US English.
[[nodiscard]] QLocale QBLocaleInForce();
