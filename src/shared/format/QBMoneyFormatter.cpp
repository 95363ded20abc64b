#include "shared/format/QBMoneyFormatter.h"

#include <QList>

#include <charconv>
#include <cmath>
#include <string>

namespace {

constexpr int kDecimals = 2;
constexpr qsizetype kGroup = 3;
/// Amounts below this show as 0.00.
constexpr double kSmallestShown = 0.005;
constexpr char32_t kMinusSign = 0x2212;
constexpr char32_t kApostrophe = 0x2019;

char32_t firstCharacter(const QString& text) {
    const auto characters = text.toUcs4();
    return characters.isEmpty() ? 0 : characters.first();
}

/// The text without the invisible marks that some locales put around signs and symbols.
QString visibleText(QStringView text) {
    QString visible;
    for (const QChar character : text) {
        if (character.category() != QChar::Other_Format)
            visible += character;
    }
    return visible.trimmed();
}

/// Takes the symbol off the front or the end of the text, wherever people write it.
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

/// Whether whole digits stand in groups: one to three in front, then twos or threes, three at the end.
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
    : mLocale(locale)
    , mSymbol(locale.currencySymbol())
    , mMinus(locale.negativeSign())
    , mGroupMark(firstCharacter(locale.groupSeparator()))
    , mDecimalMark(firstCharacter(locale.decimalPoint())) {
    mLocale.setNumberOptions(QLocale::OmitGroupSeparator);
}

QString QBMoneyFormatter::string(double amount) const {
    const QString digits = grouped(mLocale.toString(std::abs(amount), 'f', kDecimals));
    return amount <= -kSmallestShown ? mMinus + mSymbol + digits : mSymbol + digits;
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

/// Puts the marks between groups of three; the locales' own rules group some numbers in other ways, or not at all.
QString QBMoneyFormatter::grouped(const QString& digits) const {
    auto characters = digits.toUcs4();
    for (auto i = characters.indexOf(mDecimalMark) - kGroup; i > 0; i -= kGroup)
        characters.insert(i, mGroupMark);
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size());
}

bool QBMoneyFormatter::isGroupMark(char32_t character) const {
    if (character == mGroupMark)
        return true;
    // What a keyboard offers for the typographic mark.
    return QChar::isSpace(mGroupMark) ? QChar::isSpace(character) : mGroupMark == kApostrophe && character == '\'';
}
