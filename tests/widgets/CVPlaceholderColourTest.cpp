#include "widgets/CVPlaceholderColour.h"

#include "kit/Contrast.h"
#include "widgets/CVQuietTextColour.h"

#include <QApplication>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace {

/// A palette with these colours for lists and fields, and with the black placeholders of a desktop that sets none.
QPalette paletteOf(const QColor& text, const QColor& ground) {
    QPalette palette;
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    return palette;
}

class CVPlaceholderColourTest : public testing::Test {
protected:
    ~CVPlaceholderColourTest() override { QApplication::setPalette(mBefore); }

    static double contrastOfPlaceholder(const QWidget& field) {
        return contrast(field.palette().color(QPalette::PlaceholderText), field.palette().color(QPalette::Base));
    }

    const QPalette mBefore = QApplication::palette();
    const QPalette mLight = paletteOf(Qt::black, Qt::white);
    const QPalette mDark = paletteOf({252, 252, 252}, {27, 30, 32});
};

TEST_F(CVPlaceholderColourTest, AQuietTextIsReadableOnLightAndDarkGroundAndStepsBackBehindOthers) {
    for (const QPalette& palette : {mLight, mDark}) {
        const QColor ground = palette.color(QPalette::Base);
        EXPECT_GE(contrast(CVQuietTextColour(palette), ground), kReadableContrast);
        EXPECT_LT(contrast(CVQuietTextColour(palette), ground), contrast(palette.color(QPalette::Text), ground) / 2);
    }
}

TEST_F(CVPlaceholderColourTest, PlaceholdersFollowTheTextAtTheStartAndWhenThePaletteChanges) {
    QApplication::setPalette(mDark);
    EXPECT_LT(contrastOfPlaceholder(QLineEdit()), kReadableContrast);
    const CVPlaceholderColour colour(*qApp);
    EXPECT_GE(contrastOfPlaceholder(QLineEdit()), kReadableContrast);
    for (const QPalette& palette : {mLight, mDark}) {
        QApplication::setPalette(palette);
        // The toolkit sends the event only while QApplication::exec() runs.
        QEvent change(QEvent::ApplicationPaletteChange);
        QApplication::sendEvent(qApp, &change);
        const QLineEdit field;
        EXPECT_EQ(field.palette().color(QPalette::PlaceholderText), CVQuietTextColour(palette));
        EXPECT_EQ(field.palette().color(QPalette::Text), palette.color(QPalette::Text));
    }
}

} // namespace
