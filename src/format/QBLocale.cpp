#include "format/QBLocale.h"

namespace {

QLocale usEnglish() {
    return {QLocale::English, QLocale::UnitedStates};
}

/// Compares the date format because the system's locale carries the name of its other settings, not that of its dates.
/// No other locale has the date format of C.
bool hasNoCustomaryDate(const QLocale& locale) {
    return locale.dateFormat(QLocale::ShortFormat) == QLocale::c().dateFormat(QLocale::ShortFormat);
}

} // namespace

QLocale QBLocaleInForce() {
    const QLocale locale;
    return locale.language() == QLocale::C ? usEnglish() : locale;
}

QLocale QBDateLocaleInForce() {
    const QLocale locale;
    return hasNoCustomaryDate(locale) ? usEnglish() : locale;
}
