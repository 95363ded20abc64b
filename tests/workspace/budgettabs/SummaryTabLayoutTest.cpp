#include "workspace/budgettabs/SummaryTabFixture.h"

#include <QFontInfo>
#include <QHeaderView>
#include <QWheelEvent>

#include <algorithm>

namespace {

class SummaryTabLayoutTest : public SummaryTabFixture {
protected:
    ~SummaryTabLayoutTest() override { QApplication::setFont(mFont); }

    [[nodiscard]] std::vector<QTableView*> tablesOfRows() const { return {&mCategories, &mPeriods, &mCategoryTotals}; }

    static void turnWheel(const QTableView& table, const QPoint& pixels) {
        const QPointF position = table.viewport()->rect().center();
        QWheelEvent event(position, table.viewport()->mapToGlobal(position), pixels, pixels * 8, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(table.viewport(), &event);
    }

    [[nodiscard]] static std::vector<int> widths(const QTableView& table) {
        std::vector<int> widths;
        for (int column = 0; column < table.model()->columnCount(); ++column)
            widths.push_back(table.columnWidth(column));
        return widths;
    }

    /// Expects each row at the same height in all tables.
    void expectAlignedRows() const {
        for (const QTableView* const table : tablesOfRows()) {
            for (int row = 0; row < mPeriods.model()->rowCount(); ++row)
                ASSERT_EQ(table->viewport()->mapTo(&mTab, QPoint(0, table->rowViewportPosition(row))).y(),
                          mPeriods.viewport()->mapTo(&mTab, QPoint(0, mPeriods.rowViewportPosition(row))).y())
                    << table->objectName().toStdString() << ", row " << row;
        }
    }

    /// Expects each total below its period.
    void expectAlignedColumns() const {
        EXPECT_EQ(widths(mPeriods), widths(mPeriodTotals));
        for (int column = 0; column < mPeriods.model()->columnCount(); ++column)
            EXPECT_EQ(
                mPeriodTotals.viewport()->mapTo(&mTab, QPoint(mPeriodTotals.columnViewportPosition(column), 0)).x(),
                mPeriods.viewport()->mapTo(&mTab, QPoint(mPeriods.columnViewportPosition(column), 0)).x())
                << column;
    }

    const QFont mFont = QApplication::font();
};

TEST_F(SummaryTabLayoutTest, NamesStandAtTheLeftTotalsAtTheRightAndBelow) {
    categories(3).show(CVDisplayPeriods::Week);
    const auto place = [this](const QTableView& table) { return QRect(table.mapTo(&mTab, QPoint()), table.size()); };
    EXPECT_LT(place(mCategories).right(), place(mPeriods).left());
    EXPECT_LT(place(mPeriods).right(), place(mCategoryTotals).left());
    EXPECT_LT(place(mPeriods).bottom(), place(mPeriodTotals).top());
    expectAlignedRows();
    expectAlignedColumns();
}

TEST_F(SummaryTabLayoutTest, WhicheverTableIsScrolledTheOthersFollow) {
    categories(60).show(CVDisplayPeriods::Week);
    int before = 0;
    const auto expectScrolled = [&](const char* how) {
        const int now = mPeriods.verticalScrollBar()->value();
        EXPECT_NE(now, before) << how;
        before = now;
        expectAlignedRows();
        EXPECT_EQ(mPeriodTotals.rowViewportPosition(0), 0) << "the row of totals stays: " << how;
    };
    for (QTableView* const table : tablesOfRows()) {
        turnWheel(*table, QPoint(0, -30));
        expectScrolled("wheel");
        table->setFocus();
        QTest::keyClick(table, Qt::Key_End, Qt::ControlModifier);
        expectScrolled("end");
        QTest::keyClick(table, Qt::Key_Home, Qt::ControlModifier);
        expectScrolled("home");
        for (int page = 0; page < 2; ++page)
            QTest::keyClick(table, Qt::Key_PageDown);
        expectScrolled("page");
        table->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        expectScrolled("bar");
    }
}

TEST_F(SummaryTabLayoutTest, ScrollingTheRowOfTotalsMovesNoRow) {
    categories(60).show(CVDisplayPeriods::Week);
    turnWheel(mPeriodTotals, QPoint(0, -30));
    EXPECT_EQ(mPeriods.verticalScrollBar()->value(), 0);
    EXPECT_EQ(mPeriodTotals.rowViewportPosition(0), 0);
}

TEST_F(SummaryTabLayoutTest, ThereIsOneBarForAllRowsAndOneForAllColumns) {
    categories(60).show(CVDisplayPeriods::Day);
    mTab.resize(400, 300);
    QCoreApplication::processEvents();
    int vertical = 0;
    int horizontal = 0;
    for (const QTableView* const table : {&mCategories, &mPeriods, &mCategoryTotals, &mPeriodTotals}) {
        vertical += table->verticalScrollBar()->isVisible() ? 1 : 0;
        horizontal += table->horizontalScrollBar()->isVisible() ? 1 : 0;
    }
    EXPECT_EQ(vertical, 1);
    EXPECT_EQ(horizontal, 1);
    EXPECT_TRUE(mCategoryTotals.verticalScrollBar()->isVisible());
    EXPECT_TRUE(mPeriodTotals.horizontalScrollBar()->isVisible());
    EXPECT_GE(mPeriodTotals.viewport()->height(), mPeriodTotals.rowHeight(0)) << "the bar covers the totals";
    expectAlignedRows();
}

TEST_F(SummaryTabLayoutTest, ScrollingToTheSideKeepsTotalsBelowTheirPeriods) {
    categories(60).show(CVDisplayPeriods::Day);
    mTab.resize(400, 300);
    QCoreApplication::processEvents();
    for (QTableView* const table : {&mPeriods, &mPeriodTotals}) {
        turnWheel(*table, QPoint(-50, 0));
        EXPECT_GT(mPeriods.horizontalScrollBar()->value(), 0);
        expectAlignedColumns();
        table->horizontalScrollBar()->setValue(table->horizontalScrollBar()->maximum());
        expectAlignedColumns();
        table->horizontalScrollBar()->setValue(0);
        expectAlignedColumns();
    }
}

/// The layout in each of the tests' fonts.
class SummaryTabFontTest : public SummaryTabLayoutTest, public testing::WithParamInterface<const char*> {
protected:
    SummaryTabFontTest() {
        QApplication::setFont(QFont(GetParam(), mFont.pointSize()));
        QCoreApplication::processEvents();
        EXPECT_EQ(QFontInfo(mPeriods.font()).family(), GetParam());
    }

    void widen(int width) {
        mTab.resize(width, 400);
        QCoreApplication::processEvents();
    }
};

TEST_P(SummaryTabFontTest, PeriodsFillTheWidth) {
    widen(1200);
    categories(3);
    for (int type = 0; type < CVDisplayPeriods::kTypes; ++type) {
        show(type);
        EXPECT_EQ(mPeriods.horizontalHeader()->length(), mPeriods.viewport()->width()) << type;
        expectAlignedColumns();
    }
}

TEST_P(SummaryTabFontTest, GoingFromDaysToWeeksAndBackRestoresTheColumns) {
    for (int width = 900; width <= 1300; width += 25) {
        widen(width);
        categories(3).show(CVDisplayPeriods::Day);
        const std::vector<int> days = widths(mPeriods);
        EXPECT_LE(*std::ranges::max_element(days) - *std::ranges::min_element(days), 1) << width;
        show(CVDisplayPeriods::Week);
        EXPECT_EQ(widths(mPeriods).size(), 4U);
        show(CVDisplayPeriods::Day);
        EXPECT_EQ(widths(mPeriods), days) << width;
        expectAlignedColumns();
        for (int column = 0; column < 7; ++column) {
            EXPECT_EQ(mPeriods.model()->headerData(column, Qt::Horizontal),
                      mContents.periods().header(column + 1).text);
        }
    }
}

TEST_P(SummaryTabFontTest, GoingFromDaysToWeeksAndBackRestoresTheWidthsThatTheUserHasChosen) {
    widen(1300);
    categories(3).show(CVDisplayPeriods::Day);
    mPeriods.setColumnWidth(1, 2 * mPeriods.columnWidth(1));
    reload();
    const std::vector<int> days = widths(mPeriods);
    ASSERT_GT(days[1], days[0] + 20);
    for (const int type : {CVDisplayPeriods::Week, CVDisplayPeriods::Month, CVDisplayPeriods::Day})
        show(type);
    EXPECT_EQ(widths(mPeriods), days);
}

INSTANTIATE_TEST_SUITE_P(Of, SummaryTabFontTest, testing::Values("DejaVu Sans", "Liberation Sans"),
                         [](const auto& font) { return std::string(font.param).substr(0, 6); });

TEST_F(SummaryTabLayoutTest, ColumnsThatComeBackAreAsWideAsTheFirst) {
    mTab.resize(1400, 400);
    categories(3).show(CVDisplayPeriods::Week);
    mPeriods.setColumnWidth(0, 2 * mPeriods.columnWidth(0));
    expectAlignedColumns();
    show(CVDisplayPeriods::Day);
    const std::vector<int> days = widths(mPeriods);
    for (const int column : {4, 5, 6})
        EXPECT_NEAR(days[static_cast<std::size_t>(column)], days[0], 1) << column;
    EXPECT_GT(days[0], days[1]) << "a width that the user has chosen is kept in proportion";
}

TEST_F(SummaryTabLayoutTest, AReloadKeepsTheWidthsThatTheUserHasChosen) {
    categories(3).show(CVDisplayPeriods::Week);
    mPeriods.setColumnWidth(1, 150);
    mTab.resize(901, 400);
    QCoreApplication::processEvents();
    const std::vector<int> chosen = widths(mPeriods);
    ASSERT_NE(chosen[0], chosen[1]);
    reload();
    EXPECT_EQ(widths(mPeriods), chosen);
}

TEST_F(SummaryTabLayoutTest, LongAmountsWidenTheirColumns) {
    categories(3).spendOn(0, -123'456'789'012.34).show(CVDisplayPeriods::Day);
    const QString amount = "-$123,456,789,012.34";
    for (const QTableView* const table : {&mPeriods, &mPeriodTotals, &mCategoryTotals})
        EXPECT_GT(table->columnWidth(0), table->fontMetrics().horizontalAdvance(amount));
}

TEST_F(SummaryTabLayoutTest, NothingIsCutWithTwiceTheTextSize) {
    categories(60).spendOn(0, 1234.5).show(CVDisplayPeriods::Day);
    const int row = mPeriods.rowHeight(0);
    QFont font = mFont;
    font.setPointSizeF(font.pointSizeF() * 2);
    QApplication::setFont(font);
    QCoreApplication::processEvents();
    EXPECT_GT(mPeriods.rowHeight(0), mPeriods.fontMetrics().height() * 5 / 4);
    EXPECT_GT(mPeriods.rowHeight(0), row * 3 / 2) << "the rows follow the font";
    EXPECT_GE(mPeriodTotals.height(), mPeriodTotals.rowHeight(0));
    const QHeaderView& header = *mPeriods.horizontalHeader();
    for (int column = 0; column < header.count(); ++column)
        EXPECT_GE(header.sectionSize(column), header.sectionSizeHint(column)) << column;
    EXPECT_GE(mCategories.columnWidth(0), mCategories.fontMetrics().horizontalAdvance("Category 59"));
    expectAlignedRows();
    expectAlignedColumns();
}

} // namespace
