#include "PreferencesFixture.h"
#include "kit/ScreenRows.h"
#include "widgets/CVHelpOpener.h"

#include <QDir>
#include <QFile>
#include <QScrollArea>
#include <QScrollBar>

namespace {

class RecordingHelp final : public CVHelpOpener {
public:
    void showHelpPage(const QString& page, QWidget& /*asker*/) override { mPages.append(page); }
    [[nodiscard]] const QStringList& pages() const { return mPages; }

private:
    QStringList mPages;
};

class PreferenceWindow : public PreferencesFixture {
protected:
    [[nodiscard]] QTabWidget& tabs() const { return *mWindow->findChild<QTabWidget*>(); }
    [[nodiscard]] QLabel& remark() const { return *mWindow->findChild<QLabel*>("mRemark"); }
};

TEST_F(PreferenceWindow, HasFourTabsAndStandsBesideTheMainWindow) {
    open();
    QStringList titles;
    for (int i = 0; i < tabs().count(); ++i)
        titles.append(tabs().tabText(i));
    EXPECT_EQ(titles, (QStringList{"Budget", "Entry", "Update", "Data File"}));
    EXPECT_FALSE(mWindow->isModal());
    EXPECT_FALSE(mWindow->testAttribute(Qt::WA_QuitOnClose)) << "the program ends with its main window";
}

TEST_F(PreferenceWindow, EveryControlHasItsName) {
    open();
    for (const char* const name :
         {"Items in Pop-up", "Clear Fields", "Today Column", "First Day of Week", "Show All Categories",
          "Check Automatically", "Check Frequency", "Include System Information", "Check Now", "Learn More",
          "Data File Location", "Change Location", "Clear Data File"})
        EXPECT_NE(control<QWidget>(name), nullptr);
}

TEST_F(PreferenceWindow, EveryControlIsReachedFromTheKeyboard) {
    open();
    QStringList met;
    for (int tab = 0; tab < tabs().count(); ++tab) {
        tabs().setCurrentIndex(tab);
        tabs().setFocus();
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            met.append(QApplication::focusWidget()->accessibleName());
        }
    }
    click("Check Automatically");
    for (const char* const name :
         {"Items in Pop-up", "Clear Fields", "Today Column", "First Day of Week", "Show All Categories",
          "Check Automatically", "Include System Information", "Check Now", "Learn More", "Data File Location",
          "Change Location", "Clear Data File", "Close"})
        EXPECT_TRUE(met.contains(name)) << name;
}

TEST_F(PreferenceWindow, TheLastTabIsRememberedByItsIdentifier) {
    open();
    tabs().setCurrentIndex(2);
    EXPECT_EQ(defaults().stringForKey(CVDefaultsKeys::kPreferencesTab), "UpdateID");
    open();
    EXPECT_EQ(tabs().currentIndex(), 2);
    defaults().setString(CVDefaultsKeys::kPreferencesTab, "no such tab");
    open();
    EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(PreferenceWindow, TheUpdatePaneCanBeAskedFor) {
    open().displayUpdatePane();
    EXPECT_EQ(tabs().tabText(tabs().currentIndex()), "Update");
    EXPECT_EQ(tabs().currentWidget()->objectName(), "UpdateID");
}

TEST_F(PreferenceWindow, ItsFrameIsRemembered) {
    open().resize(700, 500);
    mWindow->close();
    open();
    EXPECT_EQ(mWindow->size(), QSize(700, 500));
}

TEST_F(PreferenceWindow, ShownAgainItHasWhatWasChangedElsewhere) {
    open();
    mWindow->close();
    defaults().setInteger(CVDefaultsKeys::kNumberOfItems, 10);
    mWindow->showWindow();
    EXPECT_EQ(control<QLineEdit>("Items in Pop-up")->text(), "10");
}

TEST_F(PreferenceWindow, TheHelpButtonOpensItsPageAndIsNotThereWithoutHelp) {
    RecordingHelp help;
    open(&help);
    click("Help");
    EXPECT_EQ(help.pages(), QStringList{"Preferences.html"});
    open();
    for (const auto* const button : mWindow->findChildren<QPushButton*>())
        EXPECT_NE(button->accessibleName(), "Help");
}

TEST_F(PreferenceWindow, SettingsThatCannotBeKeptAreRemarkedOnlyWhenASaveFails) {
    // A folder replaces the settings file, because even the superuser cannot write to a folder.
    const QString path = mHome.path("settings.ini");
    QFile::remove(path);
    ASSERT_TRUE(QDir().mkpath(path));
    open();
    EXPECT_TRUE(remark().isHidden());
    click("Clear Fields");
    EXPECT_TRUE(remark().isVisible());
    EXPECT_TRUE(remark().text().contains(path)) << remark().text().toStdString();
    EXPECT_TRUE(control<QCheckBox>("Clear Fields")->isChecked());
    EXPECT_TRUE(defaults().boolForKey(CVDefaultsKeys::kClearFields)) << "it lasts until the program ends";
    ASSERT_TRUE(QDir().rmdir(path));
    click("Clear Fields");
    EXPECT_TRUE(remark().isHidden()) << "the trouble is over";
    EXPECT_TRUE(QBUserDefaults(mHome.settingsStore()).hasKey(CVDefaultsKeys::kClearFields));
}

TEST_F(PreferenceWindow, AHintStandsNearerToItsControlThanToTheNextAndIsReadOutWithIt) {
    open();
    struct Row {
        const char* control;
        const char* next;
    };
    for (const Row& row : {Row{"First Day of Week", "Today Column"}, Row{"Today Column", "Show All Categories"},
                           Row{"Change Location", "Clear Data File"}}) {
        auto* const mine = control<QWidget>(row.control);
        auto* const other = control<QWidget>(row.next);
        showTabOf(mine);
        const QString text = mine->accessibleDescription();
        ASSERT_FALSE(text.isEmpty()) << row.control;
        const QLabel* hint = nullptr;
        for (auto* const label : mWindow->findChildren<QLabel*>()) {
            if (label->text() == text)
                hint = label;
        }
        ASSERT_NE(hint, nullptr) << row.control;
        const auto onWindow = [this](const QWidget& widget, int y) {
            return widget.mapTo(mWindow.get(), QPoint(0, y)).y();
        };
        const int textTop = onWindow(*hint, hint->contentsRect().top());
        const int textBottom = onWindow(*hint, hint->contentsRect().bottom());
        EXPECT_LT(2 * (textTop - onWindow(*mine, mine->height())), onWindow(*other, 0) - textBottom) << row.control;
        EXPECT_EQ(other->accessibleDescription() == text, false);
    }
}

TEST_F(PreferenceWindow, EveryPaneFitsEveryScreen) {
    const QFont before = QApplication::font();
    RecordingHelp help;
    for (const ScreenRow& screen : kScreenRows) {
        SCOPED_TRACE(screen.name);
        QFont font = before;
        font.setPixelSize(screen.letterPixels);
        QApplication::setFont(font);
        open(&help).resize(screen.inside);
        QCoreApplication::processEvents();
        EXPECT_EQ(mWindow->size(), screen.inside) << "its smallest size is larger";
        for (int tab = 0; tab < tabs().count(); ++tab) {
            tabs().setCurrentIndex(tab);
            QCoreApplication::processEvents();
            const auto* const pane = qobject_cast<QScrollArea*>(tabs().widget(tab));
            const bool isSmallest = &screen == std::end(kScreenRows) - 1;
            EXPECT_TRUE(isSmallest || pane->horizontalScrollBar()->maximum() == 0) << tab;
            for (const auto* const button : pane->findChildren<QPushButton*>())
                EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
        }
        for (const auto* const button : mWindow->findChildren<QPushButton*>(Qt::FindDirectChildrenOnly))
            EXPECT_TRUE(mWindow->rect().contains(button->geometry())) << button->text().toStdString();
    }
    QApplication::setFont(before);
}

} // namespace
