#include "reports/CVPrintInfo.h"

#include <QRectF>

#include <gtest/gtest.h>

namespace {

TEST(CVPrintInfo, BeginsWithThePaperThatIsUsualWhereTheUserLives) {
    struct Row {
        const char* locale;
        QPageSize::PageSizeId paper;
    };
    const std::vector<Row> rows{{"en_US", QPageSize::Letter}, {"fr_CA", QPageSize::Letter},
                                {"es_MX", QPageSize::Letter}, {"en_GB", QPageSize::A4},
                                {"de_DE", QPageSize::A4},     {"he_IL", QPageSize::A4}};
    for (const Row& row : rows)
        EXPECT_EQ(CVPrintInfo::ofLocale(QLocale(row.locale)).paper.id(), row.paper) << row.locale;
}

TEST(CVPrintInfo, HasAnInchOfMarginAndStandsUpright) {
    const CVPrintInfo printInfo;
    EXPECT_EQ(printInfo.margins, QMarginsF(72, 72, 72, 72));
    EXPECT_EQ(printInfo.paperSize(), QSizeF(595, 842));
    EXPECT_EQ((CVPrintInfo{.orientation = QPageLayout::Landscape}.paperSize()), QSizeF(842, 595));
    EXPECT_EQ((CVPrintInfo{.paper = QPageSize(QPageSize::Letter)}.paperSize()), QSizeF(612, 792));
}

TEST(CVPrintInfo, GoesToAPanelAndBackUnchanged) {
    const CVPrintInfo printInfo{
        .paper = QPageSize(QPageSize::A5), .orientation = QPageLayout::Landscape, .margins = {36, 48, 60, 72}};
    CVPrintInfo other;
    other.setPageLayout(printInfo.pageLayout());
    EXPECT_EQ(other.paper.id(), QPageSize::A5);
    EXPECT_EQ(other.orientation, QPageLayout::Landscape);
    EXPECT_EQ(other.margins, printInfo.margins);
}

TEST(CVPrintInfo, GivesADeviceTheWholeSheet) {
    const QPageLayout sheet = CVPrintInfo{.orientation = QPageLayout::Landscape}.wholeSheet();
    EXPECT_EQ(sheet.paintRect(QPageLayout::Point), QRectF(0, 0, 842, 595));
}

} // namespace
