#include "budget/CVDayRange.h"

qint64 CVDayRange::days() const {
    qint64 days = 0;
    end.dateByAddingYears(0, 0, 1).yearsMonthsDaysSinceDate(nullptr, nullptr, &days, start);
    return days;
}

qint64 CVDayRange::wholeMonths() const {
    qint64 months = 0;
    end.dateByAddingYears(0, 0, 1).yearsMonthsDaysSinceDate(nullptr, &months, nullptr, start);
    return months;
}
