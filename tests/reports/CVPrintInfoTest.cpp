#include "reports/CVPrintInfo.h"

#include "base/QBUserDefaults.h"
#include "kit/ScratchHome.h"

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

TEST(CVPrintInfo, IsKeptForTheNextStart) {
    ScratchHome home;
    std::vector<CVPrintInfo> kept{
        {.paper = QPageSize(QSizeF(300.5, 400), QPageSize::Point), .margins = {0, 0, 0, 0}},
        {.paper = QPageSize(QPageSize::A4), .orientation = QPageLayout::Landscape, .margins = {36, 48.25, 60, 72}}};
    for (int id = 0; id <= QPageSize::LastPageSize; ++id) {
        if (id != QPageSize::Custom)
            kept.push_back({.paper = QPageSize(static_cast<QPageSize::PageSizeId>(id)), .margins = {9, 9, 9, 9}});
    }
    for (const CVPrintInfo& printInfo : kept) {
        printInfo.keepIn(home.userDefaults());
        const CVPrintInfo read = CVPrintInfo::fromDefaults(home.userDefaults(), QLocale("de_DE"));
        EXPECT_EQ(read.paper.id(), printInfo.paper.id()) << printInfo.paper.name().toStdString();
        EXPECT_EQ(read.paperSize(), printInfo.paperSize()) << printInfo.paper.name().toStdString();
        EXPECT_EQ(read.orientation, printInfo.orientation);
        EXPECT_EQ(read.margins, printInfo.margins);
    }
}

TEST(CVPrintInfo, IsThatOfTheLocaleWhereWhatWasKeptMakesNoPage) {
    ScratchHome home;
    struct Row {
        const char* paper;
        const char* margins;
        CVPrintInfo expected;
    };
    const CVPrintInfo letter{.paper = QPageSize(QPageSize::Letter)};
    const CVPrintInfo a5{.paper = QPageSize(QPageSize::A5)};
    const std::vector<Row> rows{{"", "", letter},
                                {"Foolscap", "a b c d", letter},
                                {"100x", "72 72 72", letter},
                                {"1x1", "72 72 72 72 72", letter},
                                {"nanxinf", "nan 72 72 72", letter},
                                {"999999x100", "-1 72 72 72", letter},
                                {"Custom", "306 72 306 72", letter},
                                {"A5", "72 300 72 300", a5}};
    for (const Row& row : rows) {
        home.userDefaults().setString("CVPaper", row.paper);
        home.userDefaults().setString("CVPaperMargins", row.margins);
        EXPECT_EQ(CVPrintInfo::fromDefaults(home.userDefaults(), QLocale("en_US")), row.expected)
            << row.paper << ", " << row.margins;
    }
}

} // namespace
