#include "budget/CVRangePresets.h"

#include "model/CVDocument.h"

#include <algorithm>
#include <array>

namespace {

enum class Start : quint8 { FirstTransaction, FirstOfYear, FirstOfMonth, FirstOfWeek };
enum class Clamp : bool { No, Yes };
enum class Verify : bool { No, Yes };

struct Length {
    int years;
    int months;
    int days;
};

struct Preset {
    Start start;
    /// The number of years, months or weeks before the present one.
    int before;
    Clamp clamp;
    /// From the start, after clamping, to the end; unused for the preset of all transactions.
    Length length;
    Verify verify;
};

constexpr std::array<Preset, kCVRangePresets> kPresets{{
    {Start::FirstTransaction, 0, Clamp::No, {0, 0, 0}, Verify::No},
    {Start::FirstOfYear, 1, Clamp::Yes, {2, 0, -1}, Verify::Yes},
    {Start::FirstOfYear, 1, Clamp::Yes, {1, 0, -1}, Verify::No},
    {Start::FirstOfYear, 0, Clamp::Yes, {1, 0, -1}, Verify::Yes},
    {Start::FirstOfMonth, 1, Clamp::Yes, {0, 1, -1}, Verify::No},
    {Start::FirstOfMonth, 0, Clamp::Yes, {0, 1, -1}, Verify::Yes},
    {Start::FirstOfWeek, 1, Clamp::Yes, {0, 0, 6}, Verify::No},
    {Start::FirstOfWeek, 0, Clamp::No, {0, 0, 6}, Verify::No},
}};

QBDate startOf(const Preset& preset, const QBDate& today) {
    switch (preset.start) {
    case Start::FirstOfYear:
        return QBDate::dateWithYear(today.yearOfCommonEra() - preset.before, 1, 1);
    case Start::FirstOfMonth:
        // Month 0, asked for in January, is December of the year before.
        return QBDate::dateWithYear(today.yearOfCommonEra(), today.monthOfYear() - preset.before, 1);
    case Start::FirstOfWeek:
        return today.dateByAddingYears(0, 0, -(7 * preset.before + today.dayOfWeek()));
    case Start::FirstTransaction:
        break;
    }
    return today;
}

} // namespace

QBDate latestSelectableDate(const CVDocument& document) {
    const QBDate today = QBDate::date();
    return std::max(today, document.latestTransactionDate().value_or(today));
}

QBDate verifyEndDate(const QBDate& date, const CVDocument& document) {
    return std::min(date, latestSelectableDate(document));
}

QBDate verifyStartDate(const QBDate& date, const CVDocument& document) {
    return std::max(date, document.earliestTransactionDate().value_or(date));
}

std::optional<CVDayRange> rangeOfPreset(int index, const QBDate& today, const CVDocument& document) {
    if (index < 0 || index >= static_cast<int>(kPresets.size()))
        return std::nullopt;
    const Preset& preset = kPresets[static_cast<std::size_t>(index)];
    if (preset.start == Start::FirstTransaction)
        return CVDayRange{document.earliestTransactionDate().value_or(today),
                          document.latestTransactionDate().value_or(today)};
    QBDate start = startOf(preset, today);
    if (preset.clamp == Clamp::Yes)
        start = verifyStartDate(start, document);
    const Length& length = preset.length;
    const QBDate end = start.dateByAddingYears(length.years, length.months, length.days);
    return CVDayRange{start, preset.verify == Verify::Yes ? verifyEndDate(end, document) : end};
}
