#include "app/CVAboutWindow.h"

#include "ShellFixture.h"
#include "base/CVSite.h"

#include <QClipboard>
#include <QTextBrowser>
#include <QTimer>

namespace {

class CVAboutWindowTest : public ShellFixture {
protected:
    /// Chooses the command, lets `act` look at the window, then closes the window with Escape.
    template <typename Act>
    void inAbout(Act act) {
        start();
        bool isDone = false;
        QTimer::singleShot(0, &window(), [&] {
            auto* const about = qobject_cast<CVAboutWindow*>(QApplication::activeModalWidget());
            ASSERT_NE(about, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(about));
            act(*about);
            QTest::keyClick(about, Qt::Key_Escape);
            EXPECT_FALSE(about->isVisible());
            isDone = true;
        });
        choose("About Corvella");
        EXPECT_TRUE(isDone);
    }

    static void press(CVAboutWindow& about, const QString& name) {
        for (auto* const button : about.findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == name)
                return button->click();
        }
        ADD_FAILURE() << name.toStdString();
    }
};

TEST_F(CVAboutWindowTest, NamesVersionMakerLicenceAndTheLibrariesWithTheirs) {
    inAbout([this](const CVAboutWindow& about) {
        EXPECT_EQ(about.parentWidget(), &window());
        const QString text = about.text();
        for (const QString& part :
             {QString("Corvella " CORVELLA_VERSION), CVSite::webSite(), QString("Quenby Labs"), QString("MIT licence"),
              "Qt " + QString(qVersion()), QString("libxml2"), QString("libplist"), QString("muParser"),
              QString("CUPS"), QString("GNU Lesser General Public License, version 3"),
              QString("GNU Lesser General Public License, version 2.1 or later")})
            EXPECT_TRUE(text.contains(part)) << part.toStdString() << " in " << text.toStdString();
    });
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVAboutWindowTest, ItsTextCanBeSelectedWithTheKeyboardAndCopiedAsAWhole) {
    inAbout([](CVAboutWindow& about) {
        auto* const text = about.findChild<QTextBrowser*>();
        EXPECT_TRUE(text->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
        EXPECT_FALSE(text->accessibleName().isEmpty());
        text->setFocus();
        QTest::keyClick(text, Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        QTest::keyClick(text, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text().trimmed(), "Corvella");
        // Tab goes from link to link and then leaves the text.
        for (int key = 0; key < 10 && text->hasFocus(); ++key)
            QTest::keyClick(text, Qt::Key_Tab);
        EXPECT_FALSE(text->hasFocus());
        press(about, "Copy All");
        EXPECT_EQ(QApplication::clipboard()->text(), about.text());
    });
}

TEST_F(CVAboutWindowTest, ItsLinksOpenInTheBrowserForIt) {
    inAbout([this](CVAboutWindow& about) {
        auto* const text = about.findChild<QTextBrowser*>();
        emit text->anchorClicked(QUrl(CVSite::webSite()));
        EXPECT_EQ(mURLs.opened(), QList<QUrl>{QUrl(CVSite::webSite())});
        EXPECT_EQ(mURLs.askers(), QStringList{"About Corvella"});
    });
}

} // namespace
