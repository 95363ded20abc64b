#include "format/QBDateFormatter.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kDigitsOfFullYear = 4;
constexpr int kDigitsOfDayOrMonth = 2;
constexpr int kYearsAhead = 20;
constexpr int kYearsPerCentury = 100;
/// The separators that people type in dates besides those of their locale.
constexpr QStringView kUsualSeparators = u"/.-, ";

struct Number {
    int value = 0;
    int digits = 0;
};

/// The latest year that two digits can name today.
qint64 latestYear() {
    return QBDate::date().yearOfCommonEra() + kYearsAhead;
}

/// The year with these last two digits that lies nearest to `latest`, and not after it.
qint64 fullYear(int lastDigits, qint64 latest) {
    const qint64 year = latest - latest % kYearsPerCentury + lastDigits;
    return year > latest ? year - kYearsPerCentury : year;
}

/// Absent when the calendar has no such day.
std::optional<QBDate> existingDay(qint64 year, int month, int day) {
    const QBDate date = QBDate::dateWithYear(year, month, day);
    if (date.yearOfCommonEra() != year || date.monthOfYear() != month || date.dayOfMonth() != day)
        return std::nullopt;
    return date;
}

} // namespace

QBDateFormatter::QBDateFormatter(const QLocale& locale) : QBDateFormatter(shortDateFormat(locale), locale) {}

QBDateFormatter::QBDateFormatter(const QString& format, const QLocale& locale)
    : mDigits(locale)
    , mLatestYear(latestYear())
    , mPieces(pieces(format)) {
    const auto isDayOrMonth = [](const Piece& piece) { return piece.field != Field::Year; };
    const auto first = std::find_if(mPieces.cbegin(), mPieces.cend(), isDayOrMonth);
    if (first != mPieces.cend())
        mSeparator = first->literal.trimmed();
}

QString QBDateFormatter::shortDateFormat(const QLocale& locale) {
    return locale.dateFormat(QLocale::ShortFormat);
}

QString QBDateFormatter::string(const QBDate& date) const {
    QString text;
    for (const Piece& piece : mPieces) {
        switch (piece.field) {
        case Field::Day:
            mDigits.append(text, date.dayOfMonth(), piece.width);
            break;
        case Field::Month:
            mDigits.append(text, date.monthOfYear(), piece.width);
            break;
        case Field::Year:
            appendYear(text, date.yearOfCommonEra(), piece.width);
            break;
        }
        text += piece.literal;
    }
    return text;
}

std::optional<QBDate> QBDateFormatter::parse(QStringView text) const {
    QList<Number> numbers;
    bool inNumber = false;
    for (const char32_t character : text.trimmed().toUcs4()) {
        const int digit = QChar::digitValue(character);
        if (digit < 0) {
            if (numbers.isEmpty() || !isSeparator(character))
                return std::nullopt;
        } else {
            if (!inNumber)
                numbers.append(Number());
            Number& number = numbers.last();
            number.value = number.value * 10 + digit;
            if (++number.digits > kDigitsOfFullYear)
                return std::nullopt;
        }
        inNumber = digit >= 0;
    }
    const auto isSlip = [](const Number& number) { return number.digits == kDigitsOfFullYear - 1; };
    if (numbers.isEmpty() || numbers.size() > 3 || std::any_of(numbers.cbegin(), numbers.cend(), isSlip))
        return std::nullopt;

    const QBDate today = QBDate::date();
    qint64 year = today.yearOfCommonEra();
    int month = today.monthOfYear();
    int day = 0;
    const QList<Field> order = fields(numbers.size(), numbers.first().digits);
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const Number number = numbers[i];
        if (order[i] == Field::Day)
            day = number.value;
        else if (order[i] == Field::Month)
            month = number.value;
        else
            year = number.digits <= 2 ? fullYear(number.value, latestYear()) : number.value;
    }
    return existingDay(year, month, day);
}

qsizetype QBDateFormatter::countForeignCharacters(QStringView text) const {
    const auto characters = text.toUcs4();
    return std::count_if(characters.cbegin(), characters.cend(), [this](char32_t character) {
        return QChar::digitValue(character) < 0 && !isSeparator(character);
    });
}

QList<QBDateFormatter::Piece> QBDateFormatter::pieces(const QString& format) {
    QList<Piece> pieces;
    bool quoted = false;
    QChar previous;
    for (const QChar character : format) {
        const bool isField = !quoted && (character == 'd' || character == 'M' || character == 'y');
        if (character == '\'')
            quoted = !quoted;
        else if (isField && character == previous)
            widen(pieces.last());
        else if (isField)
            pieces.append({character == 'd' ? Field::Day : character == 'M' ? Field::Month : Field::Year, 1, {}});
        else if (!pieces.isEmpty())
            pieces.last().literal += character;
        previous = isField ? character : QChar();
    }
    return pieces;
}

/// Counts another letter of a field. Days and months get no more than two digits, because those that the format has as
/// names are written as numbers.
void QBDateFormatter::widen(Piece& piece) {
    if (piece.field == Field::Year || piece.width < kDigitsOfDayOrMonth)
        ++piece.width;
}

void QBDateFormatter::appendYear(QString& text, qint64 year, int width) const {
    const int lastDigits = static_cast<int>(std::abs(year) % kYearsPerCentury);
    if (width == 2 && fullYear(lastDigits, mLatestYear) == year)
        mDigits.append(text, lastDigits, width);
    else
        mDigits.append(text, year, kDigitsOfFullYear);
}

/// The fields for which the numbers of a typed date stand. A first number of four digits can only be a year.
QList<QBDateFormatter::Field> QBDateFormatter::fields(qsizetype count, int digitsOfFirst) const {
    if (count == 1)
        return {Field::Day};
    if (count == 3 && digitsOfFirst > 2)
        return {Field::Year, Field::Month, Field::Day};
    QList<Field> fields;
    for (const Piece& piece : mPieces) {
        if (count == 3 || piece.field != Field::Year)
            fields.append(piece.field);
    }
    return fields;
}

bool QBDateFormatter::isSeparator(char32_t character) const {
    if (QChar::isSpace(character))
        return true;
    const QString text = QString::fromUcs4(&character, 1);
    return kUsualSeparators.contains(text) ||
           std::any_of(mPieces.cbegin(), mPieces.cend(),
                       [&text](const Piece& piece) { return piece.literal.contains(text); });
}
