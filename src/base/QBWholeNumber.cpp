#include "base/QBWholeNumber.h"

#include "base/QBNumberText.h"

#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>

namespace QBWholeNumber {

namespace {

/// So many digits fit into any number here without a look at its range.
constexpr int kShortUnsigned = 9;
constexpr int kShortMoney = 13;
constexpr int kCents = 100;
constexpr std::string_view kSpaces = " \t\n\v\f\r";
constexpr std::string_view kDigits = "0123456789";

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kSpaces);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
}

/// A decimal number to the last digit: 0.DIGITS times ten to the power of the exponent. Zero has no digits.
struct Decimal {
    bool isNegative = false;
    std::string digits = {};
    long long exponent = 0;

    friend bool operator==(const Decimal&, const Decimal&) = default;
};

bool takeSign(std::string_view& text) {
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    return isNegative;
}

std::string_view takeDigits(std::string_view& text) {
    const std::string_view digits = text.substr(0, text.find_first_not_of(kDigits));
    text.remove_prefix(digits.size());
    return digits;
}

/// Absent when the text says anything but one number.
std::optional<Decimal> decimalOf(std::string_view text) {
    text = trimmed(text);
    Decimal decimal;
    decimal.isNegative = takeSign(text);
    const std::string_view whole = takeDigits(text);
    std::string_view fraction;
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        fraction = takeDigits(text);
    }
    if (whole.empty() && fraction.empty())
        return std::nullopt;
    if (!text.empty() && (text.front() == 'e' || text.front() == 'E')) {
        text.remove_prefix(1);
        const bool isNegative = takeSign(text);
        const auto read = std::from_chars(text.data(), text.data() + text.size(), decimal.exponent);
        if (text.empty() || !isDigit(text.front()) || read.ec != std::errc())
            return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
        if (isNegative)
            decimal.exponent = -decimal.exponent;
    }
    if (!text.empty())
        return std::nullopt;
    decimal.digits = std::string(whole) + std::string(fraction);
    const std::size_t zeros = decimal.digits.find_first_not_of('0');
    if (zeros == std::string::npos)
        return Decimal{};
    decimal.digits.erase(0, zeros);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    decimal.exponent += static_cast<long long>(whole.size()) - static_cast<long long>(zeros);
    return decimal;
}

bool isWrittenWhole(std::string_view text, double number) {
    if (trimmed(text).empty())
        return true;
    std::array<char, QBNumberText::kMoneyBound> written{};
    const char* const end = QBNumberText::writeMoney(written.data(), number);
    const auto decimal = decimalOf(text);
    return decimal && decimal == decimalOf({written.data(), static_cast<std::size_t>(end - written.data())});
}

} // namespace

Reading<quint32> readUnsigned(const char* text) {
    quint32 number = 0;
    const char* at = text;
    for (; isDigit(*at) && at - text < kShortUnsigned; ++at)
        number = number * 10 + static_cast<quint32>(*at - '0');
    if (*at == '\0')
        return {number, true};
    const quint32 leading = QBNumberText::leadingUnsigned(text);
    const auto decimal = decimalOf(text);
    const bool isWhole = trimmed(text).empty() || (decimal && decimal == decimalOf(std::to_string(leading)));
    return {leading, isWhole};
}

/// The form that this program writes is read in one walk: the quotient of two whole numbers that a double keeps is the
/// double next to their true quotient, as that of a slower reader is.
Reading<double> readMoney(const char* text) {
    const char* at = text;
    const bool isNegative = *at == '-';
    if (isNegative)
        ++at;
    const char* const first = at;
    qint64 cents = 0;
    for (; isDigit(*at) && at - first < kShortMoney; ++at)
        cents = cents * 10 + (*at - '0');
    if (at != first && at[0] == '.' && isDigit(at[1]) && isDigit(at[2]) && at[3] == '\0') {
        cents = cents * kCents + (at[1] - '0') * 10 + (at[2] - '0');
        const double number = static_cast<double>(cents) / kCents;
        return {isNegative ? -number : number, true};
    }
    const double number = QBNumberText::leadingDouble(text);
    return {number, isWrittenWhole(text, number)};
}

} // namespace QBWholeNumber
