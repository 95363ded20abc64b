#include "reports/CVReport.h"

#include "ReportSamples.h"
#include "kit/Printers.h"

#include <gtest/gtest.h>

namespace {

TEST(CVReport, IsNamedByItsKindAndTodayWithoutAFigure) {
    const ReportSamples samples;
    const std::array names{"Transaction Report 2014-03-12",
                           "Category Averages Report 2014-03-12",
                           "Plan vs Actual Report 2014-03-12",
                           "Percent Report 2014-03-12",
                           "Tax Report 2014-03-12",
                           "Summary Report 2014-03-12"};
    static_assert(names.size() == kReportTypes);
    for (const auto& [type, word] : kReportKinds)
        EXPECT_EQ(samples.report(type)->name(), names[static_cast<std::size_t>(type)]) << word;
}

} // namespace
