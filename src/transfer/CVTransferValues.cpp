#include "transfer/CVTransferValues.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace CVTransferValues {

namespace {

constexpr std::string_view kInfinity = "Infinity";
constexpr std::string_view kMinusInfinity = "-Infinity";
/// The longest text is that of the smallest double: "-0." and 1074 digits.
constexpr std::size_t kAmountBound = 1100;

} // namespace

QByteArray textOfDay(const std::optional<QBDate>& day) {
    return day ? day->corvellaXMLRepresentation().replace('/', '-') : QByteArray();
}

std::optional<QBDate> dayOfText(std::string_view text) {
    std::string stored(text);
    // A minus sign before the year stays.
    for (std::size_t at = 1; at < stored.size(); ++at) {
        if (stored[at] == '-')
            stored[at] = '/';
    }
    const auto day = QBDate::optimizedDateWithCStringXMLFormat(stored);
    return day && textOfDay(day) == QByteArrayView(text) ? day : std::nullopt;
}

QByteArray textOfAmount(double amount) {
    if (std::isnan(amount))
        return "NaN";
    if (std::isinf(amount))
        return amount < 0 ? kMinusInfinity.data() : kInfinity.data();
    // The sign of a negative zero says nothing.
    const double value = amount == 0 ? 0 : amount;
    std::array<char, kAmountBound> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return {text.data(), written.ptr - text.data()};
}

std::optional<double> amountOfText(std::string_view text) {
    if (text == kInfinity || text == kMinusInfinity)
        return text == kInfinity ? std::numeric_limits<double>::infinity() : -std::numeric_limits<double>::infinity();
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = read.ec == std::errc() && read.ptr == text.data() + text.size() && std::isfinite(value);
    return isNumber ? std::optional(value) : std::nullopt;
}

} // namespace CVTransferValues
