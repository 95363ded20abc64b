#include "DateProperty.h"

#include "shared/format/QBDateFormatter.h"

namespace {

constexpr qsizetype kChoice = 2;
constexpr qint64 kLastYear = 9999;

const QList<QLocale>& dateLocales() {
    static const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    return locales;
}

} // namespace

QString brokenDateProperty(const QByteArray& bytes) {
    if (bytes.size() < kChoice)
        return {};
    const auto byte = [&bytes](qsizetype at) { return static_cast<unsigned char>(bytes[at]); };
    const QLocale& locale = dateLocales().at((byte(0) << 8 | byte(1)) % dateLocales().size());
    const QString text = QString::fromUtf8(bytes.sliced(kChoice));
    const QBDateFormatter formatter(locale);
    const auto strangers = formatter.strangersIn(text);
    if (strangers < 0 || strangers > text.size())
        return QStringLiteral("more strangers than characters");
    const auto day = formatter.parse(text);
    if (!day)
        return {};
    if (day->yearOfCommonEra() < 0 || day->yearOfCommonEra() > kLastYear)
        return QStringLiteral("a year that nobody types: %1").arg(day->yearOfCommonEra());
    if (strangers > 0)
        return QStringLiteral("a date with strangers");
    const QString written = formatter.string(*day);
    return formatter.parse(written) == day ? QString()
                                           : QStringLiteral("%1 does not read back in %2").arg(written, locale.name());
}
