#include "PreferencesFixture.h"
#include "kit/DefaultLocale.h"

namespace {

class PreferenceControls : public PreferencesFixture {
protected:
    [[nodiscard]] int stored(const char* key) { return defaults().integerForKey(key); }
};

TEST_F(PreferenceControls, WithoutSettingsEverythingIsOffAndTheCheckIsWeeklyAndDisabled) {
    open();
    EXPECT_EQ(control<QLineEdit>("Items in Pop-up")->text(), "0");
    for (const char* const box :
         {"Clear Fields", "Show All Categories", "Check Automatically", "Include System Information"})
        EXPECT_FALSE(control<QCheckBox>(box)->isChecked()) << box;
    EXPECT_EQ(control<QComboBox>("First Day of Week")->currentIndex(), 0);
    EXPECT_EQ(control<QComboBox>("Today Column")->currentIndex(), 0);
    EXPECT_EQ(control<QComboBox>("Check Frequency")->currentIndex(), 1);
    EXPECT_FALSE(control<QComboBox>("Check Frequency")->isEnabled());
    EXPECT_EQ(control<QLineEdit>("Update Status")->text(), "Corvella has never checked for updates.");
    EXPECT_EQ(control<QLineEdit>("Data File Location")->text(), "Not set");
    EXPECT_EQ(mNotifications.total(), 0);
}

TEST_F(PreferenceControls, TheyShowWhatIsStored) {
    defaults().setInteger(CVDefaultsKeys::kNumberOfItems, 25);
    defaults().setInteger(CVDefaultsKeys::kStartDayOfWeek, 6);
    defaults().setInteger(CVDefaultsKeys::kTodayColumn, 2);
    defaults().setBool(CVDefaultsKeys::kClearFields, true);
    defaults().setInteger(CVDefaultsKeys::kShowUnusedCategories, 1);
    defaults().setInteger(CVDefaultsKeys::kCheckUpdatesAutomatically, 3);
    defaults().setBool(CVDefaultsKeys::kIncludeSysInfo, true);
    defaults().setString(CVDefaultsKeys::kLastCheckForUpdatesTime, "03/06/14 14:05 +0000");
    open();
    EXPECT_EQ(control<QLineEdit>("Items in Pop-up")->text(), "25");
    EXPECT_EQ(control<QComboBox>("First Day of Week")->currentText(), "Saturday");
    EXPECT_EQ(control<QComboBox>("Today Column")->currentIndex(), 2);
    for (const char* const box :
         {"Clear Fields", "Show All Categories", "Check Automatically", "Include System Information"})
        EXPECT_TRUE(control<QCheckBox>(box)->isChecked()) << box;
    EXPECT_EQ(control<QComboBox>("Check Frequency")->currentText(), "Monthly");
    EXPECT_TRUE(control<QComboBox>("Check Frequency")->isEnabled());
    EXPECT_EQ(control<QLineEdit>("Update Status")->text(), "Corvella last checked for updates on 3/6/14 2:05 PM.");
}

TEST_F(PreferenceControls, ANumberLiesAtTheEndOfTheReadingDirection) {
    open();
    auto* const field = control<QLineEdit>("Items in Pop-up");
    EXPECT_TRUE(field->alignment().testFlag(Qt::AlignRight));
    field->window()->setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(field->alignment(), Qt::AlignLeft | Qt::AlignVCenter | Qt::AlignAbsolute);
}

TEST_F(PreferenceControls, ValuesThatNoItemHasChooseNone) {
    defaults().setInteger(CVDefaultsKeys::kStartDayOfWeek, 7);
    defaults().setInteger(CVDefaultsKeys::kTodayColumn, 4000);
    defaults().setInteger(CVDefaultsKeys::kCheckUpdatesAutomatically, 99);
    defaults().setInteger(CVDefaultsKeys::kNumberOfItems, -5);
    defaults().setString(CVDefaultsKeys::kLastCheckForUpdatesTime, "yesterday");
    open();
    EXPECT_EQ(control<QComboBox>("First Day of Week")->currentIndex(), -1);
    EXPECT_EQ(control<QComboBox>("Today Column")->currentIndex(), -1);
    EXPECT_TRUE(control<QCheckBox>("Check Automatically")->isChecked());
    EXPECT_EQ(control<QComboBox>("Check Frequency")->currentIndex(), 1);
    EXPECT_EQ(control<QLineEdit>("Items in Pop-up")->text(), "-5");
    EXPECT_EQ(control<QLineEdit>("Update Status")->text(), "Corvella has never checked for updates.");
    mWindow->close();
    EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), -5) << "looking at it changes nothing";
    EXPECT_EQ(announcements(), 0);
}

TEST_F(PreferenceControls, WeekdaysAreThoseOfTheLocaleFromSundayOn) {
    const DefaultLocale german(QLocale(QLocale::German, QLocale::Germany));
    open();
    const auto* const days = control<QComboBox>("First Day of Week");
    ASSERT_EQ(days->count(), 7);
    EXPECT_EQ(days->itemText(0), "Sonntag");
    EXPECT_EQ(days->itemText(6), "Samstag");
}

TEST_F(PreferenceControls, EachWritesItsSettingAtOnceToTheDisk) {
    open();
    click("Clear Fields");
    EXPECT_EQ(announcements(), 0) << "clearing fields concerns no view";
    pick("First Day of Week", 1);
    EXPECT_EQ(announcements(), 1);
    pick("Today Column", 3);
    click("Show All Categories");
    click("Check Automatically");
    click("Include System Information");
    EXPECT_EQ(announcements(), 7) << "each step to the fourth column counts";
    const QBUserDefaults next(mHome.settingsStore());
    EXPECT_TRUE(next.boolForKey(CVDefaultsKeys::kClearFields));
    EXPECT_EQ(next.integerForKey(CVDefaultsKeys::kStartDayOfWeek), 1);
    EXPECT_EQ(next.integerForKey(CVDefaultsKeys::kTodayColumn), 3);
    EXPECT_EQ(next.integerForKey(CVDefaultsKeys::kShowUnusedCategories), 1);
    EXPECT_EQ(next.integerForKey(CVDefaultsKeys::kCheckUpdatesAutomatically), 2);
    EXPECT_TRUE(next.boolForKey(CVDefaultsKeys::kIncludeSysInfo));
}

TEST_F(PreferenceControls, TheFrequencyIsChosenOnlyWhileChecksAreAutomatic) {
    open();
    click("Check Automatically");
    EXPECT_TRUE(control<QComboBox>("Check Frequency")->isEnabled());
    pick("Check Frequency", 0);
    EXPECT_EQ(stored(CVDefaultsKeys::kCheckUpdatesAutomatically), 1);
    pick("Check Frequency", 2);
    EXPECT_EQ(stored(CVDefaultsKeys::kCheckUpdatesAutomatically), 3);
    click("Check Automatically");
    EXPECT_EQ(stored(CVDefaultsKeys::kCheckUpdatesAutomatically), 0);
    EXPECT_FALSE(control<QComboBox>("Check Frequency")->isEnabled());
    click("Check Automatically");
    EXPECT_EQ(stored(CVDefaultsKeys::kCheckUpdatesAutomatically), 3) << "the frequency was remembered";
}

TEST_F(PreferenceControls, TheNumberOfItemsIsWrittenWhenEditingEnds) {
    open();
    typeNumberOfItems("12");
    EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), 12);
    EXPECT_EQ(announcements(), 1);
    EXPECT_TRUE(mWindow->isVisible()) << "Return ends the edit, not the window";
    typeNumberOfItems("15");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), 15);
    EXPECT_EQ(announcements(), 2);
}

TEST_F(PreferenceControls, EditingTheNumberOfItemsToItsPresentValueWritesAndAnnouncesNothing) {
    defaults().setInteger(CVDefaultsKeys::kNumberOfItems, 10);
    open();
    typeNumberOfItems("10");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(announcements(), 0);
    EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), 10);
}

TEST_F(PreferenceControls, AnAbsentNumberOfItemsStaysAbsentWhenZeroIsTyped) {
    open();
    typeNumberOfItems("0");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(defaults().hasKey(CVDefaultsKeys::kNumberOfItems));
    EXPECT_EQ(announcements(), 0);
}

TEST_F(PreferenceControls, WhatIsNoNumberStaysAsTypedAndIsNotWritten) {
    defaults().setInteger(CVDefaultsKeys::kNumberOfItems, 10);
    open();
    for (const char* const text : {"many", "-1", "1000", "1.5", "99999999999", " "}) {
        typeNumberOfItems(text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(control<QLineEdit>("Items in Pop-up")->text(), text);
        EXPECT_FALSE(control<QLineEdit>("Items in Pop-up")->toolTip().isEmpty()) << text;
        EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), 10) << text;
    }
    EXPECT_EQ(announcements(), 0);
}

TEST_F(PreferenceControls, EveryWayOfClosingKeepsTheNumberThatIsBeingTyped) {
    struct Case {
        const char* text;
        void (*close)(CVPreferenceWindowController& window);
    };
    const Case cases[] = {
        {"21", [](CVPreferenceWindowController& window) { window.close(); }},
        {"22", [](CVPreferenceWindowController&) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }},
        {"23",
         [](CVPreferenceWindowController&) {
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_W, Qt::ControlModifier);
         }},
    };
    for (const auto& [text, close] : cases) {
        open();
        typeNumberOfItems(text);
        close(*mWindow);
        EXPECT_FALSE(mWindow->isVisible());
        EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), QByteArray(text).toInt());
        EXPECT_EQ(announcements(), 1);
    }
    open();
    typeNumberOfItems("24");
    mWindow.reset();
    EXPECT_EQ(stored(CVDefaultsKeys::kNumberOfItems), 24) << "the program ended";
}

TEST_F(PreferenceControls, TheUpdateStatusFollowsEveryCheck) {
    open();
    defaults().setString(CVDefaultsKeys::kLastCheckForUpdatesTime, "03/07/14 09:30 +0100");
    mNotificationCenter.postNotification(CVNotifications::kCheckedForUpdates);
    EXPECT_EQ(control<QLineEdit>("Update Status")->text(), "Corvella last checked for updates on 3/7/14 8:30 AM.");
}

TEST_F(PreferenceControls, CheckNowAsksTheProgram) {
    open();
    click("Check Now");
    EXPECT_EQ(mHost.checks, 1);
}

} // namespace
