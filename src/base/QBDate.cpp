#include "base/QBDate.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

namespace {

constexpr int kMonthsPerYear = 12;
constexpr int kDaysPerWeek = 7;
constexpr qint64 kEpochJulianDay = 2440588;
/// 1 January 1970 was a Thursday.
constexpr qint64 kEpochWeekday = 4;
constexpr qint64 kLargestYear = 1'000'000'000;

std::optional<QBDate>& fixedToday() {
    static std::optional<QBDate> today;
    return today;
}

constexpr qint64 floorDivide(qint64 a, qint64 b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

constexpr qint64 floorModulo(qint64 a, qint64 b) {
    return a - floorDivide(a, b) * b;
}

constexpr bool isLeapYear(qint64 year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int lengthOfMonth(qint64 year, int month) {
    constexpr std::array<int, kMonthsPerYear> kLengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : kLengths[static_cast<std::size_t>(month - 1)];
}

/// Days from 1970-01-01 to the first of the month, after H. Hinnant, "chrono-Compatible Low-Level Date Algorithms":
/// years begin in March, so that the leap day is the last of its year, and repeat every 400 (146,097 days).
constexpr qint64 dayNumberOfFirst(qint64 year, int month) {
    const qint64 shifted = month <= 2 ? year - 1 : year;
    const qint64 era = floorDivide(shifted, 400);
    const qint64 yearOfEra = shifted - era * 400;
    const qint64 dayOfYear = (153 * ((month + 9) % kMonthsPerYear) + 2) / 5;
    const qint64 dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

char* writePadded(char* out, qint64 value, std::size_t width) {
    std::array<char, 24> digits{};
    const qint64 magnitude = std::abs(value);
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), magnitude).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (value < 0) {
        *out++ = '-';
        --width;
    }
    out = std::fill_n(out, width > length ? width - length : 0, '0');
    return std::copy_n(digits.data(), length, out);
}

/// Reads one field of digits with an optional minus sign up to `separator` (0: up to the end of the text), and removes
/// both from the text. Absent when the text has another form.
std::optional<qint64> takeField(std::string_view& text, char separator) {
    constexpr qint64 kBeyondAllFields = 100 * kLargestYear;
    const bool negative = !text.empty() && text.front() == '-';
    std::size_t at = negative ? 1 : 0;
    const std::size_t first = at;
    qint64 value = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at)
        value = std::min(value * 10 + (text[at] - '0'), kBeyondAllFields);
    const bool ends = separator ? at < text.size() && text[at] == separator : at == text.size();
    if (at == first || !ends)
        return std::nullopt;
    text.remove_prefix(separator ? at + 1 : at);
    return negative ? -value : value;
}

} // namespace

QBDate QBDate::date() {
    return fixedToday() ? *fixedToday() : dateWithNSDate(QDateTime::currentDateTime());
}

void QBDate::setToday(std::optional<QBDate> today) {
    fixedToday() = today;
}

QBDate QBDate::dateWithYear(qint64 year, int month, int day) {
    return QBDate(year, 1, 1).dateByAddingYears(0, month - 1, day - 1);
}

QBDate QBDate::dateWithNSDate(const QDateTime& instant) {
    const QDate day = instant.toLocalTime().date();
    return day.isValid() ? fromDayNumber(day.toJulianDay() - kEpochJulianDay) : date();
}

std::optional<QBDate> QBDate::optimizedDateWithCStringXMLFormat(std::string_view text) {
    const auto year = takeField(text, '/');
    const auto month = year ? takeField(text, '/') : std::nullopt;
    const auto day = month ? takeField(text, 0) : std::nullopt;
    if (!day || *year < -kLargestYear || *year > kLargestYear || *month < 1 || *month > kMonthsPerYear || *day < 1 ||
        *day > lengthOfMonth(*year, static_cast<int>(*month)))
        return std::nullopt;
    return QBDate(*year, *month, *day);
}

QBDate QBDate::dateByAddingYears(qint64 years, qint64 months, qint64 days) const {
    const qint64 monthIndex = monthOfYear() - 1 + months;
    const qint64 year = yearOfCommonEra() + years + floorDivide(monthIndex, kMonthsPerYear);
    const int month = static_cast<int>(floorModulo(monthIndex, kMonthsPerYear)) + 1;
    const qint64 day = dayOfMonth() + days;
    if (day >= 1 && day <= lengthOfMonth(year, month))
        return {year, month, day};
    return fromDayNumber(dayNumberOfFirst(year, month) + day - 1);
}

void QBDate::yearsMonthsDaysSinceDate(qint64* years, qint64* months, qint64* days, const QBDate& earlier) const {
    if (comesBefore(earlier)) {
        earlier.yearsMonthsDaysSinceDate(years, months, days, *this);
        for (qint64* const amount : {years, months, days}) {
            if (amount)
                *amount = -*amount;
        }
        return;
    }
    const qint64 wholeMonths = (yearOfCommonEra() - earlier.yearOfCommonEra()) * kMonthsPerYear +
                               (monthOfYear() - earlier.monthOfYear()) - (dayOfMonth() < earlier.dayOfMonth() ? 1 : 0);
    qint64 counted = 0;
    if (years) {
        *years = wholeMonths / kMonthsPerYear;
        counted = *years * kMonthsPerYear;
    }
    if (months) {
        *months = wholeMonths - counted;
        counted = wholeMonths;
    }
    if (days) {
        // The remaining days are counted from the same day of the month reached, or from that month's last day.
        const QBDate first =
            QBDate(earlier.yearOfCommonEra(), earlier.monthOfYear(), 1).dateByAddingYears(0, counted, 0);
        const int day =
            std::min<int>(earlier.dayOfMonth(), lengthOfMonth(first.yearOfCommonEra(), first.monthOfYear()));
        *days = dayNumber() - (first.dayNumber() + day - 1);
    }
}

int QBDate::dayOfWeek() const {
    return static_cast<int>(floorModulo(dayNumber() + kEpochWeekday, kDaysPerWeek));
}

QDateTime QBDate::nsCalendarDate() const {
    return QDate::fromJulianDay(dayNumber() + kEpochJulianDay).startOfDay();
}

char* QBDate::writeXMLRepresentation(char* out) const {
    out = writePadded(out, yearOfCommonEra(), 4);
    *out++ = '/';
    out = writePadded(out, monthOfYear(), 2);
    *out++ = '/';
    return writePadded(out, dayOfMonth(), 2);
}

QByteArray QBDate::corvellaXMLRepresentation() const {
    std::array<char, kXMLBound> text{};
    return {text.data(), writeXMLRepresentation(text.data()) - text.data()};
}

/// The inverse of `dayNumberOfFirst` for any day, after the same source.
QBDate QBDate::fromDayNumber(qint64 number) {
    const qint64 shifted = number + 719468;
    const qint64 era = floorDivide(shifted, 146097);
    const qint64 dayOfEra = shifted - era * 146097;
    const qint64 yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const qint64 dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const qint64 marchMonth = (5 * dayOfYear + 2) / 153;
    const qint64 month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    const qint64 year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
    return {year, month, dayOfYear - (153 * marchMonth + 2) / 5 + 1};
}

qint64 QBDate::dayNumber() const {
    return dayNumberOfFirst(yearOfCommonEra(), monthOfYear()) + dayOfMonth() - 1;
}
