#include "app/CVReadingPanel.h"

#include "kit/ProgressDelay.h"

#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// The panel that is shown; null when none is.
QProgressDialog* shownPanel() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const panel = qobject_cast<QProgressDialog*>(window); panel && panel->isVisible())
            return panel;
    }
    return nullptr;
}

TEST(CVReadingPanel, IsNotShownForWhatIsReadQuickly) {
    const ProgressDelay delay = ProgressDelay::forEver();
    CVReadingPanel reading(CVReadingPanel::Reading::AtStart, nullptr);
    EXPECT_TRUE(reading(0));
    EXPECT_TRUE(reading(0.5));
    EXPECT_EQ(shownPanel(), nullptr);
}

TEST(CVReadingPanel, CountsTheTimeFromTheBeginningOfTheReading) {
    const ProgressDelay delay = ProgressDelay::forEver();
    CVReadingPanel reading(CVReadingPanel::Reading::AtStart, nullptr);
    // A panel made together with the fixture would still have the former delay.
    CVProgressPanel::setDelay(0);
    EXPECT_TRUE(reading(0));
    EXPECT_NE(shownPanel(), nullptr);
}

TEST(CVReadingPanel, ShowsHowFarTheReadingHasCome) {
    const ProgressDelay delay = ProgressDelay::none();
    CVReadingPanel reading(CVReadingPanel::Reading::AtStart, nullptr);
    ASSERT_TRUE(reading(0));
    ASSERT_TRUE(reading(0.75));
    EXPECT_EQ(shownPanel()->value(), 75);
    EXPECT_EQ(shownPanel()->windowTitle(), "Corvella");
    EXPECT_EQ(shownPanel()->labelText(), "Reading your budget. Cancel ends Corvella and changes nothing.");
}

TEST(CVReadingPanel, SaysThatTheOpenBudgetStaysWhenAnotherFileIsRead) {
    const ProgressDelay delay = ProgressDelay::none();
    CVReadingPanel reading(CVReadingPanel::Reading::OtherFile, nullptr);
    ASSERT_TRUE(reading(0));
    EXPECT_EQ(shownPanel()->labelText(), "Reading the chosen file. Cancel keeps the budget that is open.");
}

TEST(CVReadingPanel, GoesWithTheReading) {
    {
        const ProgressDelay delay = ProgressDelay::none();
        CVReadingPanel reading(CVReadingPanel::Reading::AtStart, nullptr);
        ASSERT_TRUE(reading(0));
        ASSERT_NE(shownPanel(), nullptr);
    }
    EXPECT_EQ(shownPanel(), nullptr);
}

TEST(CVReadingPanel, CancelsWithItsButton) {
    const ProgressDelay delay = ProgressDelay::none();
    CVReadingPanel reading(CVReadingPanel::Reading::AtStart, nullptr);
    ASSERT_TRUE(reading(0));
    shownPanel()->findChild<QPushButton*>()->click();
    EXPECT_FALSE(reading(0.9));
}

} // namespace
