#include "reports/CVReportView.h"

#include "kit/BudgetBuilder.h"
#include "kit/FixedToday.h"
#include "reports/CVReportFont.h"

#include <gtest/gtest.h>

namespace {

/// A report of empty lines.
class EmptyReport final : public CVReport {
public:
    EmptyReport(CVReportType type, std::size_t arrayCount)
        : CVReport(type, QString(), CVColumnsOfReport(type), QStringList())
        , mArrayCount(arrayCount) {}

    [[nodiscard]] std::size_t arrayCount() const override { return mArrayCount; }
    [[nodiscard]] std::size_t lineCount() const override {
        return type() == CVReportType::Summary ? mArrayCount + 2 : mArrayCount;
    }
    [[nodiscard]] CVReportLine line(std::size_t /*index*/) const override { return {}; }
    [[nodiscard]] CVReportValues values(std::size_t /*index*/) const override { return {}; }

private:
    std::size_t mArrayCount;
};

std::unique_ptr<const CVReport> reportOf(CVReportType type, std::size_t arrayCount) {
    return std::make_unique<EmptyReport>(type, arrayCount);
}

/// The letters are 0.90527 of their size high and 0.21191 deep; a line has 2 points more. Computed by hand:
///   title  13 pt: 13 x 1.11718 + 2 = 16.5233
///   header 12 pt: 12 x 1.11718 + 2 = 15.4062
///   main   10 pt: 10 x 1.11718 + 2 = 13.1718
/// A4 upright is 595 x 842; of its height 842 - 72 - 72 - 15.4062 - 2 x 16.5233 = 649.547 is left for main lines:
/// 649.547 / 13.1718 = 49.3. On its side: 595 - 144 - 48.4528 = 402.547, / 13.1718 = 30.6.
/// Letter is 612 x 792: 792 - 144 - 48.4528 = 599.547, / 13.1718 = 45.5; on its side 612 - 192.4528 = 419.547,
/// / 13.1718 = 31.9.
constexpr double kTitle = 16.5233;
constexpr double kHeader = 15.4062;
constexpr double kMain = 13.1718;
constexpr double kTolerance = 0.02;

void expectNear(const QRectF& rect, const QRectF& expected) {
    EXPECT_NEAR(rect.x(), expected.x(), kTolerance);
    EXPECT_NEAR(rect.y(), expected.y(), kTolerance);
    EXPECT_NEAR(rect.width(), expected.width(), kTolerance);
    EXPECT_NEAR(rect.height(), expected.height(), kTolerance);
}

TEST(CVReportView, MeasuresLinesByTheLettersOfTheReport) {
    EXPECT_NEAR(CVLineHeightOf(CVReportFont::Title), kTitle, kTolerance);
    EXPECT_NEAR(CVLineHeightOf(CVReportFont::Header), kHeader, kTolerance);
    EXPECT_NEAR(CVLineHeightOf(CVReportFont::Main), kMain, kTolerance);
}

TEST(CVReportView, FitsAsManyLinesOnAPageAsThePaperHasRoomFor) {
    struct Row {
        QPageSize::PageSizeId paper;
        QPageLayout::Orientation orientation;
        std::size_t lines;
    };
    const std::vector<Row> rows{{QPageSize::A4, QPageLayout::Portrait, 49},
                                {QPageSize::A4, QPageLayout::Landscape, 30},
                                {QPageSize::Letter, QPageLayout::Portrait, 45},
                                {QPageSize::Letter, QPageLayout::Landscape, 31}};
    for (const Row& row : rows) {
        CVPrintInfo printInfo{.paper = QPageSize(row.paper), .orientation = row.orientation};
        const CVReportView view(reportOf(CVReportType::Transactions, 1), printInfo);
        EXPECT_EQ(view.numberOfMainLinesPerPage(), row.lines);
    }
}

TEST(CVReportView, PlacesEverythingAsComputedByHand) {
    CVPrintInfo printInfo;
    const CVReportView view(reportOf(CVReportType::Transactions, 60), printInfo);
    // Two sheets of 595 x 842, the first on top; between the margins 595 - 144 = 451.
    EXPECT_EQ(view.frame(), QRectF(0, 0, 595, 1684));
    EXPECT_EQ(view.rectForPage(1), QRectF(0, 842, 595, 842));
    EXPECT_EQ(view.rectForPage(2), QRectF(0, 0, 595, 842));
    // 1684 - 72 = 1612, 1612 - 2 x 16.5233 = 1578.953, and 13.1718 less for each line.
    expectNear(view.rectForTitleLine(1), {72, 1612, 451, kTitle});
    expectNear(view.rectForHeaderLine(1), {72, 1578.953, 451, kHeader});
    expectNear(view.rectForTransactionLineInPage(0, 1), {72, 1565.782, 451, kMain});
    expectNear(view.rectForTransactionLineInPage(48, 1), {72, 933.535, 451, kMain});
    // 842 - 72 = 770.
    expectNear(view.rectForTitleLine(2), {72, 770, 451, kTitle});
    expectNear(view.rectForHeaderLine(2), {72, 736.953, 451, kHeader});
    expectNear(view.rectForTransactionLineInPage(0, 2), {72, 723.782, 451, kMain});
}

TEST(CVReportView, KeepsToMarginsOfTheirOwnOnEachSide) {
    CVPrintInfo printInfo;
    printInfo.margins = {10, 20, 30, 40};
    const CVReportView view(reportOf(CVReportType::CategoryTax, 1), printInfo);
    // 842 - 20 = 822; 842 - 20 - 40 - 48.4528 = 733.547, / 13.1718 = 55.7.
    expectNear(view.rectForTitleLine(1), {10, 822, 555, kTitle});
    EXPECT_EQ(view.numberOfMainLinesPerPage(), 55U);
}

TEST(CVReportView, KnowsItsPages) {
    constexpr std::size_t kLines = 49;
    struct Row {
        std::size_t lines;
        int pages;
    };
    const std::vector<Row> rows{{0, 0},          {1, 1},          {kLines - 1, 1},     {kLines, 1},
                                {kLines + 1, 2}, {2 * kLines, 2}, {2 * kLines + 1, 3}, {100'000, 2041}};
    for (const Row& row : rows) {
        CVPrintInfo printInfo;
        const CVReportView view(reportOf(CVReportType::Transactions, row.lines), printInfo);
        EXPECT_EQ(view.knowsPageRange(), row.pages) << row.lines << " lines";
        EXPECT_EQ(view.frame().height(), row.pages * 842.0);
    }
}

TEST(CVReportView, PutsOneLineMoreThanAPageHoldsOnAPageOfItsOwn) {
    CVPrintInfo printInfo;
    const CVReportView view(reportOf(CVReportType::Transactions, 50), printInfo);
    EXPECT_EQ(view.page(1).lineCount, 49U);
    const CVReportPage second = view.page(2);
    ASSERT_EQ(second.lineCount, 1U);
    EXPECT_EQ(second.firstLine, 49U);
    EXPECT_EQ(second.rectOfLine(0), view.rectForTransactionLineInPage(0, 2));
    EXPECT_EQ(second.title, view.rectForTitleLine(2));
    EXPECT_EQ(second.header, view.rectForHeaderLine(2));
}

/// A4 on its side holds 30 lines.
TEST(CVReportView, CountsThePagesOfASummaryByItsCategories) {
    struct Row {
        const char* meaning;
        std::size_t categories;
        int pages;
        std::size_t linesOfLastPage;
    };
    const std::vector<Row> rows{
        {"everything fits on a page", 1, 1, 3},
        {"a line of the page stays empty", 27, 1, 29},
        {"the page is full, and there is another with nothing but title and header", 28, 2, 0},
        {"the total line alone is left over, and gets a page", 29, 2, 1},
        {"a full page of categories: neither blank nor total line", 30, 1, 30},
        {"both are left over beside a category", 31, 2, 3},
        {"two pages full of categories", 60, 2, 30},
        {"no categories, no page", 0, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.meaning);
        CVPrintInfo printInfo;
        const CVReportView view(reportOf(CVReportType::Summary, row.categories), printInfo);
        EXPECT_EQ(view.knowsPageRange(), row.pages);
        EXPECT_EQ(row.pages == 0 ? 0 : view.page(row.pages).lineCount, row.linesOfLastPage);
    }
}

TEST(CVReportView, LaysWideReportsOnTheirSideAndGivesTheOrientationBack) {
    struct Row {
        CVReportType type;
        bool isForced;
    };
    const std::vector<Row> rows{{CVReportType::Transactions, false},  {CVReportType::CategoryAverages, true},
                                {CVReportType::CategoryTotals, true}, {CVReportType::CategoryPercents, false},
                                {CVReportType::CategoryTax, false},   {CVReportType::Summary, true}};
    for (const Row& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.type));
        CVPrintInfo printInfo;
        {
            const CVReportView view(reportOf(row.type, 3), printInfo);
            EXPECT_EQ(printInfo.orientation == QPageLayout::Landscape, row.isForced);
            EXPECT_EQ(view.frame().width(), row.isForced ? 842 : 595);
        }
        EXPECT_EQ(printInfo.orientation, QPageLayout::Portrait);
    }
    CVPrintInfo onItsSide{.orientation = QPageLayout::Landscape};
    { const CVReportView view(reportOf(CVReportType::Summary, 3), onItsSide); }
    EXPECT_EQ(onItsSide.orientation, QPageLayout::Landscape);
}

TEST(CVReportView, TakesThePaperOfAPrinterForItselfAlone) {
    CVPrintInfo printInfo;
    const QPageLayout letterOnItsSide(QPageSize(QPageSize::Letter), QPageLayout::Landscape, QMarginsF());
    {
        CVReportView view(reportOf(CVReportType::Transactions, 60), printInfo);
        view.usePaperOf(letterOnItsSide);
        EXPECT_EQ(view.frame(), QRectF(0, 0, 792, 2 * 612));
        EXPECT_EQ(view.printInfo().margins, QMarginsF(72, 72, 72, 72));
        EXPECT_EQ(printInfo.paper.id(), QPageSize::A4);
    }
    EXPECT_EQ(printInfo.orientation, QPageLayout::Portrait);
    CVReportView wide(reportOf(CVReportType::Summary, 3), printInfo);
    wide.usePaperOf(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF()));
    EXPECT_EQ(wide.frame(), QRectF(0, 0, 792, 612));
}

TEST(CVReportView, PrintsALineOnAPageWhereMarginsLeaveNoRoom) {
    CVPrintInfo printInfo;
    printInfo.margins = {72, 500, 72, 500};
    const CVReportView view(reportOf(CVReportType::Transactions, 3), printInfo);
    EXPECT_EQ(view.knowsPageRange(), 3);
}

} // namespace
