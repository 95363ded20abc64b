#include "format/QBLocaleDigits.h"

#include <QList>

#include <array>
#include <charconv>
#include <limits>

QBLocaleDigits::QBLocaleDigits(const QLocale& locale)
    : mZero(locale.zeroDigit().toUcs4().value(0, U'0'))
    , mMinus(locale.negativeSign()) {}

void QBLocaleDigits::append(QString& text, std::string_view digits) const {
    for (const char digit : digits)
        appendCharacter(text, mZero + static_cast<char32_t>(digit - '0'));
}

void QBLocaleDigits::append(QString& text, qint64 number, int width) const {
    std::array<char, std::numeric_limits<quint64>::digits10 + 1> buffer{};
    const quint64 size = number < 0 ? 0 - static_cast<quint64>(number) : static_cast<quint64>(number);
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), size).ptr;
    if (number < 0)
        text += mMinus;
    for (auto missing = width - (end - buffer.data()); missing > 0; --missing)
        appendCharacter(text, mZero);
    append(text, std::string_view(buffer.data(), static_cast<std::size_t>(end - buffer.data())));
}

void QBLocaleDigits::appendCharacter(QString& text, char32_t character) {
    for (const char16_t unit : QChar::fromUcs4(character))
        text += QChar(unit);
}
