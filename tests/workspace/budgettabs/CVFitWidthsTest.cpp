#include "workspace/budgettabs/CVFitWidths.h"

#include "widgets/CVAttentionColourOn.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numeric>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CVFitWidths, SharesTheRoomOutEvenlyAmongEqualColumns) {
    EXPECT_THAT(CVFitWidths({100, 100, 100, 100}, 800, 50), ElementsAre(200, 200, 200, 200));
    EXPECT_THAT(CVFitWidths({300, 300}, 200, 50), ElementsAre(100, 100));
    EXPECT_THAT(CVFitWidths({0, 0}, 200, 50), ElementsAre(100, 100));
}

TEST(CVFitWidths, LosesNoPixel) {
    for (int available = 700; available < 720; ++available) {
        const auto widths = CVFitWidths({100, 100, 100, 100, 100, 100, 100}, available, 50);
        EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), available);
    }
}

TEST(CVFitWidths, KeepsAWideColumnWide) {
    EXPECT_THAT(CVFitWidths({100, 250}, 700, 50), ElementsAre(200, 500));
    EXPECT_THAT(CVFitWidths({250, 100}, 700, 50), ElementsAre(500, 200));
    EXPECT_THAT(CVFitWidths({20, 250, 250}, 450, 50), ElementsAre(50, 200, 200));
}

TEST(CVFitWidths, TakesAPixelOfDifferenceForNoMore) {
    EXPECT_THAT(CVFitWidths({101, 102, 101}, 606, 100), ElementsAre(201, 204, 201));
}

TEST(CVFitWidths, NeverMakesAColumnNarrowerThanTheSmallest) {
    EXPECT_THAT(CVFitWidths({100, 200}, 80, 50), ElementsAre(50, 50));
}

TEST(CVFitWidths, HasNothingToShareWithoutColumns) {
    EXPECT_THAT(CVFitWidths({}, 100, 50), IsEmpty());
}

/// Relative luminance and contrast ratio as WCAG 2 defines them.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double ratio = (luminance(one) + 0.05) / (luminance(other) + 0.05);
    return std::max(ratio, 1 / ratio);
}

TEST(CVAttentionColourOn, IsARedThatCanBeReadOnAnyGroundOfAPalette) {
    for (const QColor& button : {QColor(239, 239, 239), QColor(Qt::white), QColor(50, 50, 50), QColor(Qt::black)}) {
        const QPalette palette(button);
        for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::Button}) {
            const QColor red = CVAttentionColourOn(palette, role);
            EXPECT_GE(contrast(red, palette.color(role)), 4.5) << button.name().toStdString() << ' ' << role;
            EXPECT_GT(red.red(), red.green() + 50);
            EXPECT_GT(red.red(), red.blue() + 50);
        }
    }
}

} // namespace
