#include "kit/ScreenRows.h"
#include "workspace/MainWindowFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>

namespace {

/// The minimum visible sizes of the window's parts on each screen.
struct Least {
    ScreenRow screen;
    int letters;
    int rows;
    /// The screen is too small for the whole content, so it may scroll.
    bool mayScroll = false;
};

constexpr Least kLeast[] = {{kScreenRows[0], 16, 20},
                            {kScreenRows[1], 8, 14},
                            {kScreenRows[2], 7, 3},
                            {kScreenRows[3], 8, 5},
                            {kScreenRows[4], 7, 1, true}};

class MainWindowFitsScreenTest : public MainWindowFixture {
protected:
    ~MainWindowFitsScreenTest() override {
        mController.reset();
        QApplication::setFont(mFont);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QLocale::setDefault(mLocale);
    }

    void openOn(const ScreenRow& screen) {
        QFont font = mFont;
        font.setPixelSize(screen.letterPixels);
        QApplication::setFont(font);
        open();
        window().resize(screen.inside);
        QCoreApplication::processEvents();
    }

    void budgetOfMillions() {
        mBudget.set("Checking", 29);
        mBudget.set("A name that somebody typed for a set of transactions, and that nobody shortened", 30);
        mBudget.currentSet(29);
        mBudget.category("Household Supplies", 1);
        for (int i = 1; i <= 28; ++i)
            mBudget.transaction(
                {.date = day(2014, 2, i), .amount = 8'765'432.1, .category = "Household Supplies", .setID = 29});
        mBudget.inOrder();
    }

    [[nodiscard]] const QScrollArea& content() const { return *qobject_cast<QScrollArea*>(window().centralWidget()); }

    [[nodiscard]] static int lettersIn(const QWidget& field) {
        return field.width() / field.fontMetrics().averageCharWidth();
    }

    void expectNothingIsCut(const char* where) const {
        for (const auto* const label : window().findChildren<QLabel*>()) {
            if (!label->isVisible() || label->isWindow() || label->wordWrap())
                continue;
            EXPECT_GE(label->width(), label->sizeHint().width()) << where << ": " << label->text().toStdString();
        }
        for (const auto* const button : window().findChildren<QPushButton*>()) {
            if (!button->isVisible())
                continue;
            EXPECT_GE(button->width(), button->minimumSizeHint().width()) << where << button->text().toStdString();
        }
        for (const auto* const field : window().findChildren<QLineEdit*>()) {
            if (!field->isVisible() || field->fontMetrics().horizontalAdvance(field->text()) <= field->width())
                continue;
            EXPECT_EQ(field->toolTip(), field->text()) << where << ": " << field->objectName().toStdString();
        }
    }

    void expectAllIsInside(const char* where) const {
        EXPECT_EQ(content().horizontalScrollBar()->maximum(), 0) << where;
        const QWidget& whole = *content().widget();
        for (const auto* const widget : whole.findChildren<QWidget*>()) {
            const QRect place(widget->mapTo(&whole, QPoint()), widget->size());
            // A scrolled widget may be larger than its visible part.
            const bool isScrolled = widget->parentWidget()->objectName() == "qt_scrollarea_viewport";
            if (!widget->isVisible() || widget->isWindow() || isScrolled)
                continue;
            EXPECT_TRUE(whole.rect().contains(place))
                << where << ": " << widget->metaObject()->className() << widget->objectName().toStdString();
        }
    }

    const QFont mFont = QApplication::font();
    const QLocale mLocale;
};

TEST_F(MainWindowFitsScreenTest, EveryTabFitsWithNothingCut) {
    budgetOfMillions();
    for (const Least& row : kLeast) {
        SCOPED_TRACE(row.screen.name);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            openOn(row.screen);
            EXPECT_EQ(window().size(), row.screen.inside) << "its smallest size is larger";
            auto& tabs = *find<QTabWidget>("mMainTabView");
            for (int tab = 0; tab < tabs.count(); ++tab) {
                tabs.setCurrentIndex(tab);
                QCoreApplication::processEvents();
                const std::string where = tabs.tabText(tab).toStdString();
                expectNothingIsCut(where.c_str());
                expectAllIsInside(where.c_str());
                EXPECT_LE(content().verticalScrollBar()->maximum(), row.mayScroll ? 600 : 0) << where;
            }
            mController.reset();
        }
    }
}

TEST_F(MainWindowFitsScreenTest, TheNoteOnANewCategoryIsNotCutAndMovesNothing) {
    for (const Least& row : kLeast) {
        SCOPED_TRACE(row.screen.name);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            openOn(row.screen);
            const QWidget& box = *find<QWidget>("mExpenseCategoryComboBox");
            const QRect place = box.geometry();
            const QRect list = table().geometry();
            type("mExpenseCategoryComboBox", "Boat");
            QCoreApplication::processEvents();
            ASSERT_EQ(find<QLabel>("mNewCategoryNote")->text(), "new category");
            EXPECT_EQ(box.geometry(), place);
            EXPECT_EQ(table().geometry(), list);
            expectNothingIsCut("the note");
            mController.reset();
        }
    }
}

TEST_F(MainWindowFitsScreenTest, FieldsHoldAWordAndTheListSomeRows) {
    budgetOfMillions();
    for (const Least& row : kLeast) {
        SCOPED_TRACE(row.screen.name);
        openOn(row.screen);
        for (const char* const name : {"mExpenseToFromComboBox", "mExpenseCategoryComboBox"})
            EXPECT_GE(lettersIn(*find<QComboBox>(name)->lineEdit()), row.letters) << name;
        EXPECT_GE(lettersIn(*find<QLineEdit>("mForField")), row.letters);
        EXPECT_GE(table().viewport()->height() / table().rowHeight(), row.rows);
        mController.reset();
    }
}

} // namespace
