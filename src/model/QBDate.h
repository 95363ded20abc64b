#pragma once

#include <QDateTime>

#include <compare>
#include <optional>
#include <string_view>

/// A day of the proleptic Gregorian calendar, with a year 0, no time of day and no time zone. Immutable, always a day
/// that exists. Years lie within a thousand million of year 0; arithmetic that would lead beyond is outside its domain.
class QBDate final {
public:
    /// Today in the user's local calendar.
    [[nodiscard]] static QBDate date();
    /// Makes `date()` answer that day from now on; absent: the clock again.
    static void setToday(std::optional<QBDate> today);

    /// The day with these fields; a month outside 1 to 12 or a day outside the month is normalised as the arithmetic
    /// does (month 0 is December of the year before).
    [[nodiscard]] static QBDate dateWithYear(qint64 year, int month, int day);
    /// The day of that instant in the local time zone; today for an invalid one.
    [[nodiscard]] static QBDate dateWithNSDate(const QDateTime& instant);
    /// The day that a text of the form year/month/day names (the inverse of `corvellaXMLRepresentation`); absent when
    /// the text is of another form or names no day of the calendar.
    [[nodiscard]] static std::optional<QBDate> optimizedDateWithCStringXMLFormat(std::string_view text);

    [[nodiscard]] bool comesBefore(const QBDate& other) const { return *this < other; }
    [[nodiscard]] bool comesAfter(const QBDate& other) const { return *this > other; }
    [[nodiscard]] bool isSameDayAs(const QBDate& other) const { return *this == other; }

    /// Adds the amounts to the fields and normalises once: first the months carry into the years, then the days count
    /// on from the first of that month. 31 March less one month is therefore 3 March, or 2 March in a leap year.
    [[nodiscard]] QBDate dateByAddingYears(qint64 years, qint64 months, qint64 days) const;
    /// Fills each amount whose pointer is not null with the difference from `earlier` to this day, larger units first;
    /// what an unasked unit would have held counts in the next smaller one. A month is whole when its day of the month
    /// is reached. All amounts are negative or 0 when this day is the earlier one.
    void yearsMonthsDaysSinceDate(qint64* years, qint64* months, qint64* days, const QBDate& earlier) const;

    /// 0 = Sunday to 6 = Saturday.
    [[nodiscard]] int dayOfWeek() const;
    [[nodiscard]] int dayOfMonth() const { return _qb_day; }
    [[nodiscard]] int monthOfYear() const { return _qb_month; }
    [[nodiscard]] qint64 yearOfCommonEra() const { return _qb_year; }
    /// The start of the day in the local time zone.
    [[nodiscard]] QDateTime nsCalendarDate() const;

    /// A number that orders days as the days themselves, quick to compare in a walk over many.
    [[nodiscard]] constexpr qint64 orderKey() const { return _qb_year * 512 + _qb_month * 32 + _qb_day; }

    /// Room for the longest file form, in bytes.
    static constexpr qsizetype kXMLBound = 24;
    /// Writes the file form (year/month/day as "%04ld/%02d/%02d") to `out` and returns the position behind it.
    [[nodiscard]] char* writeXMLRepresentation(char* out) const;
    [[nodiscard]] QByteArray corvellaXMLRepresentation() const;

    /// By calendar day.
    friend constexpr auto operator<=>(const QBDate&, const QBDate&) = default;

private:
    constexpr QBDate(qint64 year, quint8 month, quint8 day) : _qb_year(year), _qb_month(month), _qb_day(day) {}
    [[nodiscard]] static QBDate fromDayNumber(qint64 number);
    /// Days since 1 January 1970.
    [[nodiscard]] qint64 dayNumber() const;

    qint64 _qb_year;
    quint8 _qb_month;
    quint8 _qb_day;
};
