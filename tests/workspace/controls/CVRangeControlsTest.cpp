#include "workspace/controls/CVRangeControls.h"

#include "budget/CVRangePresets.h"
#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "widgets/fields/CVDateField.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QBDate kStart = day(2014, 1, 2);
const QBDate kEnd = day(2014, 3, 7);

class CVRangeControlsTest : public testing::Test {
protected:
    CVRangeControlsTest() {
        mControls.setPreset(3);
        mControls.setRange({kStart, kEnd});
        mControls.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mControls));
        mStart.setFocus();
    }

    static void type(CVDateField& field, const QString& text, Qt::Key end = Qt::Key_Return) {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, end);
    }

    /// The days announced by a signal.
    static std::vector<QBDate> days(const QSignalSpy& spy) {
        std::vector<QBDate> days;
        for (const QVariantList& arguments : spy)
            days.push_back(*static_cast<const QBDate*>(arguments[0].constData()));
        return days;
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        return *mControls.findChild<Widget*>(name);
    }

    FixedToday mToday{day(2014, 3, 7)};
    CVRangeControls mControls{{QLatin1StringView("mRange"), "Range"},
                              {QLatin1StringView("mStart"), "Start"},
                              {QLatin1StringView("mEnd"), "End"}};
    QComboBox& mPreset = find<QComboBox>("mRange");
    CVDateField& mStart = find<CVDateField>("mStart");
    CVDateField& mEnd = find<CVDateField>("mEnd");
    QSignalSpy mPicked{&mControls, &CVRangeControls::presetPicked};
    QSignalSpy mStarts{&mControls, &CVRangeControls::startEntered};
    QSignalSpy mEnds{&mControls, &CVRangeControls::endEntered};
};

TEST_F(CVRangeControlsTest, OffersThePresetsInTheirOrder) {
    const QStringList presets{"All",        "This Year and Last", "Last Year", "This Year",
                              "Last Month", "This Month",         "Last Week", "This Week"};
    ASSERT_EQ(mPreset.count(), presets.size());
    for (int i = 0; i < presets.size(); ++i)
        EXPECT_EQ(mPreset.itemText(i), presets[i]);
}

TEST_F(CVRangeControlsTest, EachControlHasItsNames) {
    EXPECT_EQ(mPreset.accessibleName(), "Range");
    EXPECT_EQ(mStart.accessibleName(), "Start");
    EXPECT_EQ(mEnd.accessibleName(), "End");
}

TEST_F(CVRangeControlsTest, ShowsWhatIsSetAndAnnouncesNothing) {
    EXPECT_EQ(mControls.preset(), 3);
    EXPECT_EQ(mControls.range(), (CVDayRange{kStart, kEnd}));
    EXPECT_EQ(mStart.text(), "1/2/14");
    EXPECT_EQ(mEnd.text(), "3/7/14");
    mControls.setPreset(99);
    EXPECT_EQ(mControls.preset(), -1);
    mControls.setPreset(0);
    mControls.setRange({kEnd, kStart});
    EXPECT_EQ(mPicked.size() + mStarts.size() + mEnds.size(), 0);
}

TEST_F(CVRangeControlsTest, AnnouncesThePresetThatTheUserChooses) {
    mPreset.setFocus();
    QTest::keyClick(&mPreset, Qt::Key_Down);
    EXPECT_EQ(mPicked, QList<QVariantList>({{4}}));
    EXPECT_EQ(mStarts.size() + mEnds.size(), 0);
}

TEST_F(CVRangeControlsTest, AnnouncesADayOnceWhenItsTypingEnds) {
    mStart.selectAll();
    QTest::keyClicks(&mStart, "2/3");
    EXPECT_EQ(mStarts.size(), 0);
    QTest::keyClick(&mStart, Qt::Key_Return);
    mEnd.setFocus();
    EXPECT_EQ(days(mStarts), std::vector{day(2014, 2, 3)});
    type(mEnd, "3/1", Qt::Key_Tab);
    EXPECT_EQ(days(mEnds), std::vector{day(2014, 3, 1)});
    EXPECT_EQ(mStarts.size(), 1);
}

TEST_F(CVRangeControlsTest, AnnouncesEveryStepOfADay) {
    QTest::keyClick(&mStart, Qt::Key_Up);
    QTest::keyClick(&mStart, Qt::Key_Up);
    QTest::keyClick(&mEnd, Qt::Key_Down);
    EXPECT_EQ(days(mStarts), (std::vector{day(2014, 1, 3), day(2014, 1, 4)}));
    EXPECT_EQ(days(mEnds), std::vector{day(2014, 3, 6)});
}

TEST_F(CVRangeControlsTest, AnnouncesTheDayChosenFromTheCalendar) {
    mEnd.showCalendar();
    auto* const calendar = mEnd.findChild<QCalendarWidget*>();
    ASSERT_NE(calendar, nullptr);
    emit calendar->activated(QDate(2014, 3, 2));
    EXPECT_EQ(days(mEnds), std::vector{day(2014, 3, 2)});
    EXPECT_EQ(mControls.range(), (CVDayRange{kStart, day(2014, 3, 2)}));
}

TEST_F(CVRangeControlsTest, ATextThatIsNoDateKeepsTheDayAndIsMarked) {
    type(mStart, "2x");
    EXPECT_EQ(mStarts.size(), 0);
    EXPECT_FALSE(mStart.isReadable());
    EXPECT_EQ(mControls.range(), (CVDayRange{kStart, kEnd}));
    mControls.setRange({kStart, kEnd});
    EXPECT_TRUE(mStart.isReadable()) << "a range that is set replaces what could not be read";
}

TEST_F(CVRangeControlsTest, TheOwnerCanSetAnotherDayThanTheOneEntered) {
    QObject::connect(&mControls, &CVRangeControls::startEntered, &mControls, [this] {
        mControls.setRange({kStart, kEnd});
    });
    type(mStart, "1/1/99");
    EXPECT_EQ(mStart.text(), "1/2/14");
    EXPECT_EQ(mControls.range(), (CVDayRange{kStart, kEnd}));
    EXPECT_EQ(mStarts.size(), 1);
}

TEST_F(CVRangeControlsTest, TabGoesFromThePresetToTheStartAndToTheEnd) {
    mPreset.setFocus();
    for (QWidget* const next : {static_cast<QWidget*>(&mStart), static_cast<QWidget*>(&mEnd)}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), next);
    }
}

} // namespace
