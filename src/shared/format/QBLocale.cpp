#include "shared/format/QBLocale.h"

QLocale QBLocaleInForce() {
    const QLocale locale;
    return locale.language() == QLocale::C ? QLocale(QLocale::English, QLocale::UnitedStates) : locale;
}
