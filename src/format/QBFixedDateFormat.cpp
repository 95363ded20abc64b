#include "format/QBFixedDateFormat.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr int kTwoDigitYears = 100;
/// The first year that two digits can name, as POSIX defines it.
constexpr int kFirstYear = 1969;
constexpr int kSecondsPerMinute = 60;
constexpr int kMinutesPerHour = 60;

struct Fields {
    int year = kFirstYear;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    /// The offset from UTC in seconds.
    int offset = 0;
    bool hasOffset = false;
};

struct Field {
    char16_t letter;
    int Fields::*value;
};

/// The fields that have two digits.
constexpr std::array<Field, 6> kFields{{{u'm', &Fields::month},
                                        {u'd', &Fields::day},
                                        {u'y', &Fields::year},
                                        {u'H', &Fields::hour},
                                        {u'M', &Fields::minute},
                                        {u'S', &Fields::second}}};

const Field* fieldOf(QChar letter) {
    const auto* const found =
        std::find_if(kFields.begin(), kFields.end(), [letter](const Field& field) { return letter == field.letter; });
    return found == kFields.end() ? nullptr : found;
}

QString twoDigits(int number) {
    return QString::number(number).rightJustified(2, '0');
}

QString offsetText(int seconds) {
    const int minutes = std::abs(seconds) / kSecondsPerMinute;
    return (seconds < 0 ? '-' : '+') + twoDigits(minutes / kMinutesPerHour) + twoDigits(minutes % kMinutesPerHour);
}

/// Removes `count` digits from the front of `text`; false when it begins with fewer.
bool takeDigits(QStringView& text, int count, int& number) {
    if (text.size() < count)
        return false;
    number = 0;
    for (const QChar digit : text.first(count)) {
        if (digit < '0' || digit > '9')
            return false;
        number = number * 10 + digit.digitValue();
    }
    text = text.sliced(count);
    return true;
}

bool takeOffset(QStringView& text, Fields& fields) {
    if (text.isEmpty() || (text.front() != '+' && text.front() != '-'))
        return false;
    const int sign = text.front() == '-' ? -1 : 1;
    text = text.sliced(1);
    int hours = 0;
    int minutes = 0;
    if (!takeDigits(text, 2, hours) || !takeDigits(text, 2, minutes) || minutes >= kMinutesPerHour)
        return false;
    fields.offset = sign * (hours * kMinutesPerHour + minutes) * kSecondsPerMinute;
    fields.hasOffset = true;
    return true;
}

/// One field, or one character that stands for itself.
struct Piece {
    QChar letter;
    bool isField;
};

QList<Piece> piecesOf(QStringView format) {
    QList<Piece> pieces;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const bool isEscaped = format[i] == '%' && i + 1 < format.size();
        if (isEscaped)
            ++i;
        pieces.append({format[i], isEscaped && (format[i] == 'z' || fieldOf(format[i]))});
    }
    return pieces;
}

bool take(const Piece& piece, QStringView& text, Fields& fields) {
    if (piece.isField) {
        const Field* const field = fieldOf(piece.letter);
        return field ? takeDigits(text, 2, fields.*field->value) : takeOffset(text, fields);
    }
    if (!text.startsWith(piece.letter))
        return false;
    text = text.sliced(1);
    return true;
}

QString textOf(const Piece& piece, const Fields& fields) {
    if (!piece.isField)
        return piece.letter;
    const Field* const field = fieldOf(piece.letter);
    return field ? twoDigits(fields.*field->value) : offsetText(fields.offset);
}

QDateTime timeOf(Fields fields) {
    const int century = kFirstYear - kFirstYear % kTwoDigitYears;
    if (fields.year < kTwoDigitYears)
        fields.year += fields.year < kFirstYear % kTwoDigitYears ? century + kTwoDigitYears : century;
    const QDate day(fields.year, fields.month, fields.day);
    const QTime time(fields.hour, fields.minute, fields.second);
    if (!day.isValid() || !time.isValid())
        return {};
    return fields.hasOffset ? QDateTime(day, time, Qt::OffsetFromUTC, fields.offset) : QDateTime(day, time);
}

} // namespace

QString stringWithFixedFormat(QStringView format, const QDateTime& time) {
    const Fields fields{time.date().year() % kTwoDigitYears,
                        time.date().month(),
                        time.date().day(),
                        time.time().hour(),
                        time.time().minute(),
                        time.time().second(),
                        time.offsetFromUtc(),
                        true};
    QString text;
    for (const Piece& piece : piecesOf(format))
        text += textOf(piece, fields);
    return text;
}

QDateTime nsdateWithFixedFormat(QStringView format, QStringView string) {
    Fields fields;
    for (const Piece& piece : piecesOf(format)) {
        if (!take(piece, string, fields))
            return {};
    }
    return string.isEmpty() ? timeOf(fields) : QDateTime();
}
