#include "kit/Contrast.h"
#include "workspace/MainWindowFixture.h"

#include <QLabel>

namespace {

/// The share of light pixels in the picture of a widget.
double lightness(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    qint64 light = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            light += qGray(image.pixel(x, y)) > 127 ? 1 : 0;
    }
    return static_cast<double>(light) / (image.width() * image.height());
}

QPalette darkPalette() {
    QPalette palette(QColor(50, 50, 50), QColor(40, 40, 40));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::AlternateBase, QColor(36, 36, 36));
    return palette;
}

class MainWindowLooksTest : public MainWindowFixture {
protected:
    ~MainWindowLooksTest() override {
        mController.reset();
        QApplication::setPalette(mPalette);
        QApplication::setFont(mFont);
        QLocale::setDefault(mLocale);
    }

    void tenTransactions() {
        mBudget.category("Food", 1);
        for (int i = 1; i <= 10; ++i) {
            mBudget.transaction({.date = day(2014, 3, i),
                                 .amount = 1234.5,
                                 .payTo = "Market",
                                 .xfor = "bread",
                                 .category = "Food",
                                 .taxFlag = true,
                                 .userFlag = true});
        }
        mBudget.inOrder();
    }

    const QPalette mPalette = QApplication::palette();
    const QFont mFont = QApplication::font();
    const QLocale mLocale;
};

TEST_F(MainWindowLooksTest, AnEmptyListSaysWhatToDo) {
    open();
    const auto isWrittenInTheMiddle = [this] {
        const QRect whole = table().viewport()->rect();
        QRect middle(0, 0, whole.width() / 2, 2 * table().fontMetrics().height());
        middle.moveCenter(whole.center());
        const QImage image = table().viewport()->grab(middle).toImage();
        const QRgb ground = image.pixel(0, 0);
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, image.height() / 2) != ground)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(isWrittenInTheMiddle());
    mBudget.transaction({.payTo = "", .xfor = ""});
    mController->getStarted();
    EXPECT_EQ(table().model()->rowCount(), 1);
    EXPECT_FALSE(isWrittenInTheMiddle());
}

TEST_F(MainWindowLooksTest, TheMessageOfAnEmptyListIsReadableInALightAndADarkPalette) {
    for (const QPalette& palette : {mPalette, darkPalette()}) {
        QApplication::setPalette(palette);
        mController.reset();
        open();
        const QImage image = table().viewport()->grab().toImage();
        const QColor ground = image.pixelColor(0, 0);
        double most = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                most = std::max(most, contrast(image.pixelColor(x, y), ground));
        }
        EXPECT_GE(most, kReadableContrast) << ground.name().toStdString();
    }
}

TEST_F(MainWindowLooksTest, ADarkPaletteMakesADarkWindowWithLightText) {
    QApplication::setPalette(darkPalette());
    tenTransactions();
    open();
    EXPECT_LT(lightness(window()), 0.2);
    EXPECT_GT(lightness(*table().viewport()), 0.001) << "dark text on dark ground";
    const QRect flag = table().visualRect(table().model()->index(0, Column::UserFlag));
    QImage picture = table().viewport()->grab(flag).toImage();
    int brightest = 0;
    for (int x = 0; x < picture.width(); ++x)
        brightest = qMax(brightest, qGray(picture.pixel(x, picture.height() / 2)));
    EXPECT_GT(brightest, 150) << "the flag is painted dark on dark";
}

TEST_F(MainWindowLooksTest, AGermanUserReadsAndTypesGermanDatesAndAmounts) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    tenTransactions();
    open();
    EXPECT_EQ(column(Column::Amount)[0], "€1.234,50");
    EXPECT_EQ(column(Column::Date)[0], "10.03.14");
    EXPECT_EQ(textOf("mTotalAmountField"), "€12.345,00");
    type("mExpenseDate", "7.4.");
    fillIn("2.000,75", "Markt", "Food");
    press(Qt::Key_Return);
    EXPECT_EQ(column(Column::Date)[0], "07.04.14");
    EXPECT_EQ(column(Column::Amount)[0], "€2.000,75");
}

TEST_F(MainWindowLooksTest, NoLabelOrFieldIsCutWithTwiceTheTextSize) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * 2);
    QApplication::setFont(font);
    tenTransactions();
    open();
    window().resize(1280, 720);
    EXPECT_LE(window().minimumSizeHint().width(), 1280);
    for (const auto* const label : window().findChildren<QLabel*>()) {
        if (!label->isVisible())
            continue;
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << label->text().toStdString();
    }
    for (const char* const name : {"mExpenseDate", "mExpenseAmountField", "mTotalAmountField"}) {
        const auto* const field = find<QLineEdit>(name);
        EXPECT_GT(field->width(), field->fontMetrics().horizontalAdvance(field->text())) << name;
    }
}

TEST_F(MainWindowLooksTest, FieldsOfTheEntryStripStandOnOneLine) {
    open();
    const QRect date = find<QWidget>("mExpenseDate")->geometry();
    for (const char* const name : {"mExpenseAmountField", "mExpenseToFromComboBox", "mForField",
                                   "mExpenseCategoryComboBox", "mTaxCheckbox", "mRecordButton"})
        EXPECT_NEAR(find<QWidget>(name)->geometry().center().y(), date.center().y(), 1) << name;
}

} // namespace
