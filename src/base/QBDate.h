#pragma once

#include <QDateTime>

#include <compare>
#include <optional>
#include <string_view>

/// A day of the proleptic Gregorian calendar, with a year 0, no time of day and no time zone. Immutable, always a day
/// that exists. Years are within a thousand million of year 0; arithmetic beyond these years is not supported.
class QBDate final {
public:
    /// Today in the user's local calendar.
    [[nodiscard]] static QBDate date();
    /// Makes `date()` answer `today` from now on; absent: the day of the clock again.
    static void setToday(std::optional<QBDate> today);

    /// The day with these fields; a month outside 1 to 12 or a day outside the month is normalised as in
    /// `dateByAddingYears` (month 0 is December of the year before).
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
    /// the amount of a unit that is not asked for counts in the next smaller unit. A month is whole when its day of the
    /// month is reached. All amounts are negative or 0 when this day is the earlier one.
    void yearsMonthsDaysSinceDate(qint64* years, qint64* months, qint64* days, const QBDate& earlier) const;

    /// 0 = Sunday to 6 = Saturday.
    [[nodiscard]] int dayOfWeek() const;
    [[nodiscard]] constexpr int dayOfMonth() const { return static_cast<int>(_qb_fields & kLargestDay); }
    [[nodiscard]] constexpr int monthOfYear() const { return static_cast<int>(_qb_fields >> kDayBits & kLargestMonth); }
    [[nodiscard]] constexpr qint64 yearOfCommonEra() const { return _qb_fields >> (kDayBits + kMonthBits); }
    /// The start of the day in the local time zone.
    [[nodiscard]] QDateTime nsCalendarDate() const;

    /// Room for the longest file form, in bytes.
    static constexpr qsizetype kXMLBound = 24;
    /// Writes the file form (year/month/day as "%04ld/%02d/%02d") to `out` and returns the position after it.
    [[nodiscard]] char* writeXMLRepresentation(char* out) const;
    [[nodiscard]] QByteArray corvellaXMLRepresentation() const;

    friend constexpr auto operator<=>(const QBDate&, const QBDate&) = default;

private:
    static constexpr int kDayBits = 5;
    static constexpr int kMonthBits = 4;
    static constexpr qint64 kLargestDay = (1 << kDayBits) - 1;
    static constexpr qint64 kLargestMonth = (1 << kMonthBits) - 1;

    constexpr explicit QBDate(qint64 fields) : _qb_fields(fields) {}
    constexpr QBDate(qint64 year, qint64 month, qint64 day)
        : _qb_fields((year << kMonthBits | month) << kDayBits | day) {}
    [[nodiscard]] static QBDate fromDayNumber(qint64 number);
    /// Days since 1 January 1970.
    [[nodiscard]] qint64 dayNumber() const;

    /// The year, the month and the day side by side, so that comparing two days is comparing two numbers.
    qint64 _qb_fields;
};
