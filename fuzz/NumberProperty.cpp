#include "NumberProperty.h"

#include "base/QBNumberText.h"

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string_view>

namespace {

constexpr std::string_view kSpaces(" \t\n\v\f\r");

std::string_view viewOf(const QByteArray& text) {
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

/// What strtod makes of a text, without the hexadecimal numbers, infinities and words that are none in a data file, and
/// of the largest size where it finds none large enough.
double independentDouble(const QByteArray& text) {
    QByteArray decimal = text;
    const auto at = static_cast<qsizetype>(viewOf(text).find_first_not_of(kSpaces));
    const qsizetype sign = at >= 0 && at < text.size() && (text[at] == '-' || text[at] == '+') ? 1 : 0;
    if (at < 0 || at + sign >= text.size() || QByteArrayView("0123456789.").indexOf(text[at + sign]) < 0)
        return 0;
    for (const char mark : {'x', 'X', '\0'}) {
        if (const qsizetype end = decimal.indexOf(mark); end >= 0)
            decimal.truncate(end);
    }
    const double value = std::strtod(decimal.constData(), nullptr);
    return std::isinf(value) ? std::copysign(std::numeric_limits<double>::max(), value) : value;
}

QByteArray written(double value) {
    std::array<char, QBNumberText::kMoneyBound> text{};
    const char* const end = QBNumberText::writeMoney(text.data(), value);
    return {text.data(), end - text.data()};
}

QByteArray independentlyWritten(double value) {
    std::array<char, QBNumberText::kMoneyBound> text{};
    const int size = std::snprintf(text.data(), text.size(), "%.2f", value);
    return {text.data(), size};
}

QString brokenWriting(double value) {
    const QByteArray text = written(value);
    if (text != independentlyWritten(value))
        return QStringLiteral("%1 is written as %2").arg(QString::number(value, 'g', 17), QString::fromLatin1(text));
    const double again = QBNumberText::leadingDouble(viewOf(text));
    return written(again) == text ? QString() : QStringLiteral("%1 reads back as another number").arg(QString(text));
}

} // namespace

QString brokenNumberProperty(const QByteArray& text) {
    const double value = QBNumberText::leadingDouble(viewOf(text));
    if (!std::isfinite(value))
        return QStringLiteral("a number that is not finite");
    const double other = independentDouble(text);
    // What is too small for a number of full width may be read as nothing.
    if (value != other && !(value == 0 && std::abs(other) <= std::numeric_limits<double>::min()))
        return QStringLiteral("%1 instead of %2").arg(value, 0, 'g', 17).arg(other, 0, 'g', 17);
    if (QString broken = brokenWriting(value); !broken.isNull())
        return broken;
    // Any number at all, not only those that people write.
    double bits = 0;
    if (text.size() >= static_cast<qsizetype>(sizeof bits))
        std::memcpy(&bits, text.constData(), sizeof bits);
    if (std::isfinite(bits)) {
        if (QString broken = brokenWriting(bits); !broken.isNull())
            return broken;
    }
    const quint32 whole = QBNumberText::leadingUnsigned(viewOf(text));
    std::array<char, QBNumberText::kIntegerBound> digits{};
    const char* const end = QBNumberText::writeUnsigned(digits.data(), whole);
    const std::string_view wholeText(digits.data(), static_cast<std::size_t>(end - digits.data()));
    return QBNumberText::leadingUnsigned(wholeText) == whole ? QString()
                                                             : QStringLiteral("an integer reads back as another one");
}
