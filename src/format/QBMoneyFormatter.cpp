#include "format/QBMoneyFormatter.h"

#include <QList>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace {

constexpr int kDecimals = 2;
constexpr std::size_t kGroup = 3;
/// The length of the largest amount, with the decimal mark and two decimals.
constexpr std::size_t kMostCharacters = std::numeric_limits<double>::max_exponent10 + 2 + kDecimals;
/// Smaller amounts show as 0.00.
constexpr double kSmallestShown = 0.005;
constexpr char32_t kMinusSign = 0x2212;
constexpr char32_t kApostrophe = 0x2019;

/// Writes digits, '.' and two decimals. An amount exactly between two cents becomes the larger one.
std::string_view decimalText(double amount, std::array<char, kMostCharacters>& buffer) {
    char* const end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), amount, std::chars_format::fixed, kDecimals).ptr;
    // Only odd eighths lie exactly between two cents. std::to_chars takes the even cent, which is the smaller one where
    // the last digit is 2 (0.125 and 0.625) and the larger one where it is 8.
    if (std::fmod(amount * 8, 2) == 1 && end[-1] == '2')
        end[-1] = '3';
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

char32_t firstCharacter(const QString& text) {
    const auto characters = text.toUcs4();
    return characters.isEmpty() ? 0 : characters.first();
}

/// The text without the invisible format characters that some locales put around signs and symbols.
QString visibleText(QStringView text) {
    QString visible;
    for (const QChar character : text) {
        if (character.category() != QChar::Other_Format)
            visible += character;
    }
    return visible.trimmed();
}

/// Removes the symbol from the front or the end of the text, because people write it in either place.
void takeSymbol(QString& text, const QString& symbol) {
    if (symbol.isEmpty())
        return;
    if (text.startsWith(symbol, Qt::CaseInsensitive))
        text = text.mid(symbol.size()).trimmed();
    else if (text.endsWith(symbol, Qt::CaseInsensitive))
        text = text.chopped(symbol.size()).trimmed();
}

bool takeMinus(QString& text) {
    if (!text.startsWith('-') && !text.startsWith(QChar(kMinusSign)))
        return false;
    text = text.mid(1).trimmed();
    return true;
}

/// Whether the lengths are those of digit groups: one to three digits first, then two or three, three at the end.
bool areGroups(const QList<int>& lengths) {
    if (lengths.size() == 1)
        return true;
    for (const int length : lengths) {
        if (length < 1 || length > 3)
            return false;
    }
    for (qsizetype i = 1; i + 1 < lengths.size(); ++i) {
        if (lengths[i] < 2)
            return false;
    }
    return lengths.last() == 3;
}

} // namespace

QBMoneyFormatter::QBMoneyFormatter(const QLocale& locale)
    : mDigits(locale)
    , mSymbol(locale.currencySymbol())
    , mMinus(locale.negativeSign())
    , mGroupMark(firstCharacter(locale.groupSeparator()))
    , mDecimalMark(firstCharacter(locale.decimalPoint())) {}

/// Always groups by three, although some locales have other rules or none.
QString QBMoneyFormatter::string(double amount) const {
    QString text;
    if (amount <= -kSmallestShown)
        text += mMinus;
    text += mSymbol;
    if (!std::isfinite(amount))
        return text + QLocale::c().toString(std::abs(amount));
    std::array<char, kMostCharacters> buffer{};
    const std::string_view decimal = decimalText(std::abs(amount), buffer);
    const std::string_view whole = decimal.substr(0, decimal.size() - kDecimals - 1);
    std::size_t group = (whole.size() - 1) % kGroup + 1;
    mDigits.append(text, whole.substr(0, group));
    for (; group < whole.size(); group += kGroup) {
        QBLocaleDigits::appendCharacter(text, mGroupMark);
        mDigits.append(text, whole.substr(group, kGroup));
    }
    QBLocaleDigits::appendCharacter(text, mDecimalMark);
    mDigits.append(text, decimal.substr(decimal.size() - kDecimals));
    return text;
}

std::optional<double> QBMoneyFormatter::parse(QStringView text) const {
    QString rest = visibleText(text);
    const bool minusInFront = takeMinus(rest);
    takeSymbol(rest, visibleText(mSymbol));
    const bool negative = minusInFront || takeMinus(rest);

    std::string digits;
    QList<int> groups{0};
    bool whole = true;
    for (const char32_t character : rest.toUcs4()) {
        const int digit = QChar::digitValue(character);
        if (digit >= 0) {
            digits += static_cast<char>('0' + digit);
            groups.last() += whole ? 1 : 0;
        } else if (whole && character == mDecimalMark) {
            digits += '.';
            whole = false;
        } else if (whole && isGroupMark(character)) {
            groups.append(0);
        } else {
            return std::nullopt;
        }
    }
    double amount = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), amount);
    if (!areGroups(groups) || read.ec != std::errc() || read.ptr != digits.data() + digits.size())
        return std::nullopt;
    return negative ? -amount : amount;
}

bool QBMoneyFormatter::isGroupMark(char32_t character) const {
    if (character == mGroupMark)
        return true;
    // A keyboard offers the blank and the straight apostrophe in place of the typographic marks.
    return QChar::isSpace(mGroupMark) ? QChar::isSpace(character) : mGroupMark == kApostrophe && character == '\'';
}
