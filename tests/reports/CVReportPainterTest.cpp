#include "reports/CVReportPainter.h"

#include "PaintedTexts.h"
#include "ReportSamples.h"

#include <gtest/gtest.h>

namespace {

/// A report with given lines in the columns of an existing report.
class ReportOfLines final : public CVReport {
public:
    ReportOfLines(CVReportType type, std::vector<CVReportLine> lines, const QString& title = QStringLiteral("Title"))
        : CVReport(type, title, CVColumnsOfReport(type), CVHeadingsOfColumns(CVColumnsOfReport(type)))
        , mLines(std::move(lines)) {}

    [[nodiscard]] std::size_t arrayCount() const override { return mLines.size(); }
    [[nodiscard]] std::size_t lineCount() const override { return mLines.size(); }
    [[nodiscard]] CVReportLine line(std::size_t index) const override {
        ++mAsked;
        return mLines[index];
    }
    [[nodiscard]] CVReportValues values(std::size_t /*index*/) const override { return {}; }

    [[nodiscard]] int asked() const { return mAsked; }

private:
    std::vector<CVReportLine> mLines;
    mutable int mAsked = 0;
};

PaintedPage painted(CVReportType type, const std::vector<CVReportLine>& lines, int page = 1) {
    CVPrintInfo printInfo;
    const CVReportView view(std::make_unique<ReportOfLines>(type, lines), printInfo);
    return paintedPage(view, page);
}

constexpr double kNear = 0.05;
/// The height of the letters above the baseline, as a multiple of their size.
constexpr double kAscent = 0.905;
/// The upper edges of the lines on an upright A4 sheet, measured from its top. The title's lower edge is at 72 and its
/// height 16.521; the header's lower edge is 2 x 16.521 further down; each main line is 13.17 below the one before.
constexpr double kTitleTop = 72 - 16.521;
constexpr double kHeaderTop = 72 + 2 * 16.521 - 15.404;
constexpr double kFirstLineTop = 72 + 2 * 16.521;

TEST(CVReportPainter, TurnsThePagesOver) {
    const PaintedPage page =
        painted(CVReportType::Transactions, {{{"1", "3/7/14", "$1.00", "Market", "bread", "Food"}},
                                             {{"2", "3/8/14", "$2.00", "Baker", "rolls", "Food"}}});
    EXPECT_NEAR(page.starting("Title").baseline.y(), kTitleTop + 13 * kAscent, kNear);
    EXPECT_NEAR(page.starting("Date").baseline.y(), kHeaderTop + 12 * kAscent, kNear);
    EXPECT_NEAR(page.starting("Market").baseline.y(), kFirstLineTop + 10 * kAscent, kNear);
    EXPECT_NEAR(page.starting("Baker").baseline.y(), kFirstLineTop + 13.17 + 10 * kAscent, kNear);
}

TEST(CVReportPainter, PlacesColumnsByTheirOffsets) {
    const PaintedPage page =
        painted(CVReportType::Transactions, {{{"1", "3/7/14", "$1.00", "Market", "bread", "Cars"}}});
    EXPECT_NEAR(page.starting("1").baseline.x(), 72, kNear);
    EXPECT_NEAR(page.starting("3/7/14").baseline.x(), 72 + 32, kNear);
    EXPECT_NEAR(page.starting("$1.00").right(), 72 + 88 + 60, kNear);
    EXPECT_NEAR(page.starting("Amount").right(), 72 + 88 + 60, kNear);
    EXPECT_NEAR(page.starting("Market").baseline.x(), 72 + 160, kNear);
    EXPECT_NEAR(page.starting("bread").baseline.x(), 72 + 270, kNear);
    EXPECT_NEAR(page.starting("Cars").baseline.x(), 72 + 380, kNear);
}

TEST(CVReportPainter, PutsThePageTextOfTransactionsAtTheRightEdgeAndOfOthersAtAFixedPlace) {
    CVPrintInfo printInfo;
    const CVReportView list(std::make_unique<ReportOfLines>(CVReportType::Transactions, std::vector<CVReportLine>(1)),
                            printInfo);
    EXPECT_NEAR(paintedPage(list, 1).starting("Page 1").right(), 595 - 72, kNear);
    const CVReportView tax(std::make_unique<ReportOfLines>(CVReportType::CategoryTax, std::vector<CVReportLine>(1)),
                           printInfo);
    EXPECT_NEAR(paintedPage(tax, 1).starting("Page 1").baseline.x(), 595 - 72 - 130, kNear);
}

TEST(CVReportPainter, UnderlinesHeadingsAndTheNameOfATotalLine) {
    const PaintedPage page =
        painted(CVReportType::Summary, {{{"Food", "$1.00"}}, {{"Total", "$2.00"}, CVReportLine::Kind::Total}});
    const auto isHeading = [](const PaintedText& text) {
        return text.font.underline() && text.font.pointSizeF() == 12;
    };
    EXPECT_TRUE(isHeading(page.starting("Category")));
    EXPECT_TRUE(isHeading(page.starting("Total")));
    for (const char* const text : {"Food", "$1.00", "$2.00"}) {
        EXPECT_FALSE(page.starting(text).font.underline()) << text;
        EXPECT_EQ(page.starting(text).font.pointSizeF(), 10) << text;
    }
    EXPECT_EQ(page.starting("Title").font.pointSizeF(), 13);
}

TEST(CVReportPainter, CutsANameAtTheEdgeOfItsColumn) {
    const QString name = "The Society for the Preservation of Long Names";
    const PaintedPage page = painted(CVReportType::Transactions,
                                     {{{"1", "", "", name, name, name}}, {{"2", "", "", "A name that fits", "", ""}}});
    int cut = 0;
    for (const PaintedText& text : page.texts) {
        if (!text.text.startsWith("The Society"))
            continue;
        ++cut;
        EXPECT_TRUE(text.text.endsWith(u'…')) << text.text.toStdString();
        EXPECT_LE(text.width, 106 + kNear);
        EXPECT_GT(text.width, 106 - 10) << "as much as there is room for";
    }
    EXPECT_EQ(cut, 3);
    EXPECT_EQ(page.starting("A name").text, "A name that fits");
}

TEST(CVReportPainter, CutsANameThatReadsFromTheRightAtItsEnd) {
    const PaintedPage page = painted(CVReportType::CategoryTax, {{{QString("מזון ויין ").repeated(10), "1", "$1.00"}}});
    double right = 0;
    bool hasEllipsis = false;
    for (const PaintedText& text : page.texts) {
        if (text.baseline.y() < kFirstLineTop || text.baseline.x() > 72 + 127)
            continue;
        right = std::max(right, text.right());
        hasEllipsis = hasEllipsis || text.text.contains(u'…');
    }
    EXPECT_TRUE(hasEllipsis);
    EXPECT_LE(right, 72 + 120 + kNear);
    EXPECT_GT(right, 72 + 100);
}

TEST(CVReportPainter, SetsAFigureNarrowerBeforeItCutsIt) {
    const PaintedPage page =
        painted(CVReportType::Transactions, {{{"123456", "31/12/2014", "$123,456,789.00", "", "", ""}},
                                             {{"", "", "$1,234,567,890,123,456,789.00"}}});
    EXPECT_LE(page.starting("123456").right(), 72 + 32);
    EXPECT_EQ(page.starting("31/12").text, "31/12/2014");
    EXPECT_NEAR(page.starting("31/12").width, 42, kNear);
    EXPECT_EQ(page.starting("$123,").text, "$123,456,789.00");
    EXPECT_NEAR(page.starting("$123,").right(), 72 + 88 + 60, kNear);
    EXPECT_NEAR(page.starting("$123,").width, 60, kNear);
    EXPECT_TRUE(page.starting("$1,234").text.endsWith(u'…'));
    EXPECT_LE(page.starting("$1,234").width, 60 + kNear);
}

TEST(CVReportPainter, KeepsALongTitleOffThePageText) {
    CVPrintInfo printInfo;
    const CVReportView view(std::make_unique<ReportOfLines>(CVReportType::CategoryTax, std::vector<CVReportLine>(1),
                                                            QString("A long title ").repeated(9)),
                            printInfo);
    const PaintedPage page = paintedPage(view, 1);
    EXPECT_TRUE(page.starting("A long").text.endsWith(u'…'));
    EXPECT_LT(page.starting("A long").right(), page.starting("Page 1").baseline.x());
}

/// The area of the shapes below the headings.
QRectF marksOf(const CVReportLine& line, double leftMargin) {
    CVPrintInfo printInfo;
    printInfo.margins.setLeft(leftMargin);
    const CVReportView view(std::make_unique<ReportOfLines>(CVReportType::Transactions, std::vector{line}), printInfo);
    QRectF marks;
    for (const QRectF& shape : paintedPage(view, 1).shapes) {
        if (shape.top() > kFirstLineTop - 1)
            marks |= shape;
    }
    return marks;
}

TEST(CVReportPainter, MarksTaxedTransactionsAtTheirPlaceOnTheSheet) {
    CVReportLine line{{"1", "3/7/14", "$1.00", "Market", "bread", "Food"}};
    EXPECT_TRUE(marksOf(line, 72).isNull());
    line.isTaxed = true;
    // The square is 12 high and lies 2 above the lower edge of its line, which is 13.17 high.
    const QRectF square(220, kFirstLineTop + 13.17 - 2 - 12, 12, 12);
    for (const double margin : {72.0, 20.0}) {
        const QRectF marks = marksOf(line, margin);
        EXPECT_TRUE(square.contains(marks));
        EXPECT_GT(marks.height(), 9);
        EXPECT_GT(marks.width(), 8);
    }
}

TEST(CVReportPainter, AsksForTheLinesOfTheShownPageAlone) {
    CVPrintInfo printInfo;
    auto report = std::make_unique<ReportOfLines>(CVReportType::Transactions, std::vector<CVReportLine>(1000));
    const ReportOfLines& lines = *report;
    const CVReportView view(std::move(report), printInfo);
    ASSERT_EQ(view.knowsPageRange(), 21);
    EXPECT_EQ(paintedPage(view, 20).texts.size(), 2U + 6U);
    EXPECT_EQ(lines.asked(), 49);
}

TEST(CVReportPainter, PaintsAPageTwiceTheSame) {
    const ReportSamples samples;
    CVPrintInfo printInfo;
    const CVReportView view(samples.report(CVReportType::Summary), printInfo);
    const auto texts = [&view] {
        QStringList all;
        for (const PaintedText& text : paintedPage(view, 1).texts)
            all.append(text.text);
        return all;
    };
    const QStringList first = texts();
    EXPECT_TRUE(first.contains("Total"));
    EXPECT_EQ(texts(), first);
}

} // namespace
