#include "shared/widgets/CVTextGlyphs.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

constexpr QRect kPlace(20, 10, 160, 24);

/// What `paint` leaves on white paper.
QImage painted(const std::function<void(QPainter&)>& paint) {
    QImage image(200, 44, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(painter);
    return image;
}

/// The smallest rectangle around all that is not white.
QRect ink(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

struct TextRow {
    const char* what;
    QString text;
};

class CVTextGlyphsTest : public testing::TestWithParam<TextRow> {
protected:
    [[nodiscard]] QImage glyphs(Qt::Alignment alignment, const QString& text, const QRect& place = kPlace) {
        return painted([&](QPainter& painter) { mGlyphs.paint(painter, place, alignment, text); });
    }

    /// The toolkit's own painting of the text, beginning at `x`.
    [[nodiscard]] QImage plain(int x, const QString& text) const {
        return painted([&](QPainter& painter) {
            const QFontMetrics metrics(mFont);
            painter.setFont(mFont);
            painter.drawText(x, kPlace.top() + (kPlace.height() - metrics.height()) / 2 + metrics.ascent(), text);
        });
    }

    QFont mFont = QApplication::font();
    CVTextGlyphs mGlyphs{mFont, Qt::LeftToRight};
};

TEST_P(CVTextGlyphsTest, PaintsWhatTheToolkitWouldPaint) {
    const QString text = GetParam().text;
    const QString shown = text.simplified();
    const int width = static_cast<int>(std::ceil(QFontMetricsF(mFont).horizontalAdvance(shown)));
    ASSERT_LE(width, kPlace.width());
    EXPECT_FALSE(ink(plain(kPlace.left(), shown)).isEmpty());
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(glyphs(Qt::AlignLeft, text), plain(kPlace.left(), shown)) << round;
        EXPECT_EQ(glyphs(Qt::AlignRight, text), plain(kPlace.right() + 1 - width, shown)) << round;
        EXPECT_EQ(glyphs(Qt::AlignHCenter, text), plain(kPlace.left() + (kPlace.width() - width) / 2, shown)) << round;
    }
    EXPECT_NEAR(mGlyphs.width(text), QFontMetricsF(mFont).horizontalAdvance(shown), 0.02);
}

TEST_P(CVTextGlyphsTest, CutsWhatDoesNotFitAsTheToolkitWould) {
    const QString text = GetParam().text;
    const QString shown = text.simplified();
    for (const double part : {0.9, 0.6}) {
        const int width = static_cast<int>(QFontMetricsF(mFont).horizontalAdvance(shown) * part);
        const QRect place(kPlace.topLeft(), QSize(width, kPlace.height()));
        const QString cut = QFontMetricsF(mFont).elidedText(shown, Qt::ElideRight, width);
        EXPECT_NE(cut, shown);
        EXPECT_EQ(glyphs(Qt::AlignLeft, text, place), plain(kPlace.left(), cut));
    }
    EXPECT_EQ(glyphs(Qt::AlignLeft, text), plain(kPlace.left(), shown)) << "and whole again where there is room";
}

INSTANTIATE_TEST_SUITE_P(Rows, CVTextGlyphsTest,
                         testing::Values(TextRow{"a name", "Corner Market"}, TextRow{"an amount", "$1,234.50"},
                                         TextRow{"a negative one", "-$7.05"}, TextRow{"in another locale", "1.234,56"},
                                         TextRow{"a date", "11/21/26"}, TextRow{"accents", "Café Blümchen"},
                                         TextRow{"ligatures", "offline files"},
                                         TextRow{"figures in a text", "Flat 12b"},
                                         TextRow{"figures with blanks", " 24  7 "},
                                         TextRow{"several blanks and lines", "two\n  lines "}));

TEST_F(CVTextGlyphsTest, PaintsNothingForNoText) {
    EXPECT_TRUE(ink(glyphs(Qt::AlignLeft, QString())).isEmpty());
    EXPECT_TRUE(ink(glyphs(Qt::AlignLeft, "")).isEmpty());
    EXPECT_EQ(mGlyphs.width(u""), 0);
}

TEST_F(CVTextGlyphsTest, InAWindowFromTheRightTheLeftIsTheRight) {
    CVTextGlyphs mirrored(mFont, Qt::RightToLeft);
    const auto inkOf = [&](Qt::Alignment alignment) {
        return ink(painted([&](QPainter& painter) { mirrored.paint(painter, kPlace, alignment, u"Market"); }));
    };
    const QImage figure =
        painted([&](QPainter& painter) { mirrored.paint(painter, kPlace, Qt::AlignRight, u"-$7.05"); });
    const QImage laidOut = painted([&](QPainter& painter) {
        painter.setFont(mFont);
        painter.setLayoutDirection(Qt::RightToLeft);
        painter.drawText(kPlace, Qt::AlignRight | Qt::AlignVCenter, "-$7.05");
    });
    EXPECT_EQ(figure.copy(ink(figure)), laidOut.copy(ink(laidOut))) << "the sign stands where the toolkit puts it";
    EXPECT_GT(inkOf(Qt::AlignLeft).left(), kPlace.center().x());
    EXPECT_LT(inkOf(Qt::AlignRight).right(), kPlace.center().x());
}

TEST_F(CVTextGlyphsTest, IsForOneFontAndOneDirection) {
    QFont bold = mFont;
    bold.setBold(true);
    EXPECT_TRUE(mGlyphs.isFor(mFont, Qt::LeftToRight));
    EXPECT_FALSE(mGlyphs.isFor(bold, Qt::LeftToRight));
    EXPECT_FALSE(mGlyphs.isFor(mFont, Qt::RightToLeft));
}

TEST_F(CVTextGlyphsTest, ForgetsNoTextWhileItIsPainted) {
    for (int i = 0; i < 10'000; ++i) {
        const QString text = QStringLiteral("Shop %1").arg(i);
        if (i % 997 == 0)
            EXPECT_EQ(glyphs(Qt::AlignLeft, text), plain(kPlace.left(), text));
        else
            (void)mGlyphs.width(text);
    }
}

} // namespace
