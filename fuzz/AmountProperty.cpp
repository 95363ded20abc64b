#include "AmountProperty.h"

#include "format/QBCalculateMoneyFormatter.h"

#include <array>
#include <cmath>
#include <vector>

namespace {

/// Of different symbols, signs, marks and digits.
constexpr std::array<const char*, 10> kAmountLocales{"en_US", "de_DE", "de_CH", "fr_FR", "es_PE",
                                                     "ar_EG", "hi_IN", "sv_SE", "fa_IR", "C"};

struct Formatters {
    QBMoneyFormatter money;
    QBCalculateMoneyFormatter calculating;
};

/// Kept from call to call: a locale takes longer to make than a text to read.
const Formatters& formattersOf(std::size_t locale) {
    static const auto all = [] {
        std::vector<Formatters> formatters;
        for (const char* const name : kAmountLocales) {
            const QLocale one{QLatin1String(name)};
            formatters.push_back({QBMoneyFormatter(one), QBCalculateMoneyFormatter(one)});
        }
        return formatters;
    }();
    return all.at(locale);
}

QString brokenAmount(const QBMoneyFormatter& money, double amount) {
    if (!std::isfinite(amount))
        return QStringLiteral("an amount that is not finite");
    const QString text = money.string(amount);
    const auto again = money.parse(text);
    if (!again)
        return QStringLiteral("%1 is written but not read").arg(text);
    return money.string(*again) == text ? QString()
                                        : QStringLiteral("%1 reads back as %2").arg(text, money.string(*again));
}

} // namespace

QString brokenAmountProperty(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return {};
    const auto chosen = static_cast<unsigned char>(bytes.front()) % kAmountLocales.size();
    const QString text = QString::fromUtf8(bytes.sliced(1));
    const auto& [money, calculating] = formattersOf(chosen);
    const auto plain = money.parse(text);
    const auto amount = calculating.parse(text);
    const auto result = calculating.result(text);
    if (plain && (result || amount != plain))
        return QStringLiteral("a plain amount is calculated");
    if (!plain && amount != result)
        return QStringLiteral("arithmetic has two results");
    return amount ? brokenAmount(money, *amount) : QString();
}
