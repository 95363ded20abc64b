#include "budget/CVDayRange.h"
#include "budget/CVDisplayPeriods.h"
#include "kit/Day.h"
#include "kit/FixedToday.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <new>

namespace {

std::size_t allocations = 0;

} // namespace

// All allocations of this program call this function.
void* operator new(std::size_t size) {
    ++allocations;
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): what operator new itself is made of.
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
    std::free(memory);
}

namespace {

template <typename Action>
std::size_t allocationsOf(Action action) {
    const std::size_t before = allocations;
    action();
    return allocations - before;
}

TEST(DateAllocation, IsCounted) {
    std::unique_ptr<int> kept;
    EXPECT_EQ(allocationsOf([&kept] { kept = std::make_unique<int>(1); }), 1U);
}

TEST(DateAllocation, DoesNotHappenInDateArithmetic) {
    const FixedToday clock(day(2014, 3, 7));
    qint64 sum = 0;
    const std::size_t count = allocationsOf([&sum] {
        QBDate date = QBDate::date();
        for (int i = 0; i < 1000; ++i) {
            const QBDate next = date.dateByAddingYears(0, i % 3, i - 500);
            qint64 years = 0;
            qint64 months = 0;
            qint64 days = 0;
            next.yearsMonthsDaysSinceDate(&years, &months, &days, date);
            sum += years + months + days + next.dayOfWeek() + next.dayOfMonth() + (next.comesAfter(date) ? 1 : 0);
            sum += CVDayRange{date, next}.days() + CVDayRange{date, next}.wholeMonths();
            date = QBDate::dateWithYear(next.yearOfCommonEra(), next.monthOfYear(), 1);
        }
    });
    EXPECT_EQ(count, 0U);
    EXPECT_NE(sum, 0);
}

TEST(DateAllocation, DoesNotHappenInPlacingPeriods) {
    qint64 sum = 0;
    const std::size_t count = allocationsOf([&sum] {
        for (int type = 0; type < CVDisplayPeriods::kTypes; ++type) {
            CVDisplayPeriods periods(type, day(2014, 3, 7), {1, 1});
            periods.next();
            for (int n = 1; n <= periods.numberOfColumnsForDisplayPeriod(); ++n)
                sum += periods.column(n).days();
            sum += periods.displayRange().days();
        }
    });
    EXPECT_EQ(count, 0U);
    EXPECT_GT(sum, 0);
}

} // namespace
