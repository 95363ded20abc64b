#include "format/QBLocale.h"

namespace {

QLocale usEnglish() {
    return {QLocale::English, QLocale::UnitedStates};
}

/// The locale of a system has the name that its other settings give it: only its formats tell that of the dates. No
/// other locale has this one.
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
