#include "app/CVReadingPanel.h"

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

/// Reads on for at most three seconds until the panel is there.
bool readUntilShown(CVReadingPanel& reading) {
    for (int step = 0; step < 100 && !shownPanel(); ++step) {
        QTest::qSleep(30);
        if (!reading(step / 200.0))
            return false;
    }
    return shownPanel() != nullptr;
}

TEST(CVReadingPanel, IsNotShownForWhatIsReadQuickly) {
    // However long ago it was made.
    CVReadingPanel reading;
    QTest::qSleep(600);
    EXPECT_TRUE(reading(0));
    EXPECT_TRUE(reading(0.5));
    EXPECT_EQ(shownPanel(), nullptr);
}

TEST(CVReadingPanel, ShowsHowFarTheReadingHasCome) {
    CVReadingPanel reading;
    ASSERT_TRUE(reading(0));
    ASSERT_TRUE(readUntilShown(reading));
    ASSERT_TRUE(reading(0.75));
    EXPECT_EQ(shownPanel()->value(), 75);
    EXPECT_EQ(shownPanel()->windowTitle(), "Corvella");
    EXPECT_EQ(shownPanel()->labelText(), "Reading your budget. Cancel ends Corvella and changes nothing.");
}

TEST(CVReadingPanel, GoesWithTheReading) {
    {
        CVReadingPanel reading;
        ASSERT_TRUE(reading(0));
        ASSERT_TRUE(readUntilShown(reading));
    }
    EXPECT_EQ(shownPanel(), nullptr);
}

TEST(CVReadingPanel, CancelsWithItsButton) {
    CVReadingPanel reading;
    ASSERT_TRUE(reading(0));
    ASSERT_TRUE(readUntilShown(reading));
    shownPanel()->findChild<QPushButton*>()->click();
    EXPECT_FALSE(reading(0.9));
}

} // namespace
