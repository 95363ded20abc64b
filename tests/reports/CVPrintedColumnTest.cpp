#include "reports/CVPrintedColumn.h"

#include <gtest/gtest.h>

namespace {

constexpr double kGap = 7;

/// The list of transactions is an exception: its columns have individual positions.
TEST(CVPrintedColumn, StandOneBehindTheOtherWithAGap) {
    for (std::size_t type = 1; type < kReportTypes; ++type) {
        double offset = 0;
        for (const CVPrintedColumn& column : CVColumnsOfReport(static_cast<CVReportType>(type))) {
            EXPECT_EQ(column.offset, offset) << "report " << type << ", " << column.label;
            EXPECT_EQ(column.header.width, column.line.width);
            offset += column.line.width + kGap;
        }
    }
}

TEST(CVPrintedColumn, OfTransactionsHaveWidthsOfTheirOwnInHeadingsAndLines) {
    struct Row {
        const char* label;
        double offset;
        double header;
        double line;
    };
    constexpr double kWhole = CVPrintedColumn::kWholeLine;
    const std::vector<Row> rows{{"#", 0, kWhole, kWhole},  {"Date", 32, 68, 42},  {"Amount", 88, 60, 60},
                                {"Paid To", 160, 80, 106}, {"For", 270, 80, 106}, {"Category", 380, 80, 106}};
    const auto columns = CVColumnsOfReport(CVReportType::Transactions);
    ASSERT_EQ(columns.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_STREQ(columns[i].label, rows[i].label);
        EXPECT_EQ(columns[i].offset, rows[i].offset);
        EXPECT_EQ(columns[i].header.width, rows[i].header);
        EXPECT_EQ(columns[i].line.width, rows[i].line);
    }
}

TEST(CVPrintedColumn, OfASummaryLieAPeriodApart) {
    const auto columns = CVColumnsOfReport(CVReportType::Summary);
    ASSERT_EQ(columns.size(), 9U);
    EXPECT_EQ(columns[1].offset, 127);
    EXPECT_EQ(columns[7].offset, 127 + 65 * 6);
    EXPECT_EQ(columns[8].offset, 127 + 65 * 7);
    EXPECT_EQ(columns[8].line.width, 58);
}

} // namespace
