#include "DateProperty.h"

#include "format/QBDateFormatter.h"

#include <vector>

namespace {

constexpr qsizetype kChoice = 2;
constexpr qint64 kLastYear = 9999;

/// Kept from call to call: a locale takes longer to make than a text to read.
const std::vector<QBDateFormatter>& dateFormatters() {
    static const auto all = [] {
        std::vector<QBDateFormatter> formatters;
        for (const QLocale& locale :
             QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory))
            formatters.emplace_back(locale);
        return formatters;
    }();
    return all;
}

} // namespace

QString brokenDateProperty(const QByteArray& bytes) {
    if (bytes.size() < kChoice)
        return {};
    const auto byte = [&bytes](qsizetype at) { return static_cast<unsigned char>(bytes[at]); };
    const std::size_t chosen = static_cast<std::size_t>(byte(0) << 8 | byte(1)) % dateFormatters().size();
    const QBDateFormatter& formatter = dateFormatters().at(chosen);
    const QString text = QString::fromUtf8(bytes.sliced(kChoice));
    const auto strangers = formatter.countForeignCharacters(text);
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
    return formatter.parse(written) == day ? QString() : QStringLiteral("%1 does not read back").arg(written);
}
