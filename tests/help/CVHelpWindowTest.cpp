#include "help/CVHelpWindow.h"

#include "BookFixture.h"
#include "base/QBUserDefaults.h"
#include "help/CVHelp.h"
#include "help/CVHelpSearch.h"
#include "kit/ScratchHome.h"
#include "kit/ScreenRows.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedURLs.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTreeView>

namespace {

/// The window as the program shows it.
class CVHelpWindowTest : public BookFixture {
protected:
    void show(const QString& page) {
        mHelp->showHelpPage(page, mAsker);
        ASSERT_NE(window(), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    }

    static CVHelpWindow* window() {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (auto* const found = qobject_cast<CVHelpWindow*>(widget))
                return found;
        }
        return nullptr;
    }

    template <typename Widget>
    static Widget* find(const char* accessibleName) {
        for (auto* const widget : window()->findChildren<Widget*>()) {
            if (widget->accessibleName() == QLatin1String(accessibleName))
                return widget;
        }
        ADD_FAILURE() << accessibleName;
        return nullptr;
    }

    static QTextBrowser& page() { return *window()->findChild<QTextBrowser*>(); }
    static QString shownPage() { return page().source().fileName(); }

    static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    static void search(const QString& text) {
        press(Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(find<QLineEdit>("Search Help")->hasFocus());
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    /// The pages found, the best one first.
    static QStringList found() {
        const auto* const results = find<QListWidget>("Pages Found");
        QStringList pages;
        for (int row = 0; row < results->count(); ++row)
            pages.append(results->item(row)->data(Qt::UserRole).toUrl().fileName());
        return pages;
    }

    ScratchHome mHome;
    /// The window from which the user asks for help.
    QWidget mAsker;
    ScriptedAlerts mAlerts;
    ScriptedURLs mURLs;
    std::unique_ptr<CVHelp> mHelp =
        std::make_unique<CVHelp>(CORVELLA_PROGRAM_FOLDER, mAlerts, mHome.userDefaults(), mURLs);
};

TEST_F(CVHelpWindowTest, ShowsThePageThatIsAskedForInItsOneWindow) {
    show("Categories.html");
    const QWidget* const first = window();
    EXPECT_EQ(first->windowTitle(), "Corvella Help");
    EXPECT_EQ(shownPage(), "Categories.html");
    EXPECT_TRUE(page().toPlainText().startsWith("Categories\n"));
    show("Preferences.html");
    EXPECT_EQ(window(), first);
    EXPECT_EQ(shownPage(), "Preferences.html");
    show("Nothing.html");
    EXPECT_EQ(shownPage(), "index.html");
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVHelpWindowTest, IsAWindowForScreenReadersAndNamesItsTabs) {
    show("Categories.html");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window())->role(), QAccessible::Window);
    const auto* const tabs = window()->findChild<QTabWidget*>();
    EXPECT_EQ(tabs->accessibleName(), "Find in Help");
    EXPECT_EQ(tabs->findChild<QTabBar*>()->accessibleName(), "Find in Help");
}

TEST_F(CVHelpWindowTest, GoesBackForwardAndHome) {
    show("Entry.html");
    show("List.html");
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shownPage(), "Entry.html");
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(shownPage(), "List.html");
    press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(shownPage(), "index.html");
}

TEST_F(CVHelpWindowTest, FollowsLinksWithTheKeyboard) {
    show("index.html");
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(shownPage(), "FirstSteps.html");
}

TEST_F(CVHelpWindowTest, ShowsPicturesOfTheBook) {
    show("index.html");
    EXPECT_FALSE(page().document()->resource(QTextDocument::ImageResource, QUrl("images/main.png")).isNull());
}

TEST_F(CVHelpWindowTest, ShowsPagesInTheStyleOfTheBook) {
    show("TransactionSets.html");
    const auto isNoteItalic = [] {
        const QTextCursor note = page().document()->find("A transaction stays in the set");
        return !note.isNull() && note.charFormat().fontItalic();
    };
    EXPECT_TRUE(isNoteItalic());
    show("index.html");
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(isNoteItalic());
}

TEST_F(CVHelpWindowTest, SelectsThePageInTheContents) {
    show("Search.html");
    auto* const contents = find<QTreeView>("Contents");
    EXPECT_TRUE(QTest::qWaitFor([contents] { return contents->currentIndex().data() == "Searching"; }));
    show("DataFile.html");
    EXPECT_EQ(contents->currentIndex().data().toString(), "Your Data File");
}

TEST_F(CVHelpWindowTest, FindsPagesByTheirWordsAndTheBeginningOfTheLastOne) {
    show("index.html");
    struct Row {
        const char* text;
        const char* page;
    };
    for (const Row& row : {Row{"fortnight", "Summary.html"}, Row{"fortn", "Summary.html"}, Row{"REFUND", "Entry.html"},
                           Row{"memory stick", "DataFile.html"}, Row{"\"ellips", "Printing.html"},
                           Row{"holiday-house", "TransactionSets.html"}}) {
        search(row.text);
        EXPECT_TRUE(QTest::qWaitFor([&row] { return found().contains(row.page); }))
            << row.text << ": " << found().join(' ').toStdString();
    }
}

TEST_F(CVHelpWindowTest, SaysThatNoPageHasAWord) {
    show("index.html");
    search("xylophone");
    const auto labels = find<QListWidget>("Pages Found")->parentWidget()->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&labels] { return labels[0]->text() == "No page has these words."; }));
    EXPECT_EQ(found(), QStringList());
    search("money");
    EXPECT_TRUE(QTest::qWaitFor([] { return !found().isEmpty(); }));
    EXPECT_EQ(labels[0]->text(), QStringLiteral("Pages found: %1").arg(found().size()));
    find<QLineEdit>("Search Help")->clear();
    EXPECT_EQ(labels[0]->text(), "");
    EXPECT_EQ(found(), QStringList());
}

TEST_F(CVHelpWindowTest, TheWordOfAnEarlierSearchChangesNothing) {
    CVHelpSearch search(mBook);
    auto* const results = search.findChild<QListWidget*>();
    const auto* const label = search.findChild<QLabel*>();
    search.findChild<QLineEdit*>()->setText("money");
    ASSERT_TRUE(QTest::qWaitFor([results] { return results->count() > 0; }));
    const QString before = label->text();
    const int count = results->count();
    for (const int earlier : {0, count + 1}) {
        emit mBook.engine().searchEngine()->searchingFinished(earlier);
        EXPECT_EQ(results->count(), count);
        EXPECT_EQ(label->text(), before);
    }
}

TEST_F(CVHelpWindowTest, ReturnInTheSearchGoesToTheBestPageAndTheWordInIt) {
    show("index.html");
    search("anywhere");
    // The first letters alone find other pages.
    ASSERT_TRUE(QTest::qWaitFor([] { return found() == QStringList{"Entry.html"}; }))
        << found().join(' ').toStdString();
    press(Qt::Key_Return);
    EXPECT_EQ(shownPage(), "Entry.html");
    EXPECT_EQ(page().textCursor().selectedText(), "anywhere");
}

TEST_F(CVHelpWindowTest, GoesToThePageOfAnIndexEntry) {
    show("index.html");
    window()->findChild<QTabWidget*>()->setCurrentIndex(1);
    auto* const field = find<QLineEdit>("Index Entry");
    auto* const entries = find<QHelpIndexWidget>("Index");
    ASSERT_TRUE(QTest::qWaitFor([entries] { return entries->model()->rowCount() > 0; }));
    QTest::keyClicks(field, "dupl");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(shownPage(), "List.html");
    EXPECT_EQ(page().source().fragment(), "duplicates");
}

TEST_F(CVHelpWindowTest, EscapeAndControlWCloseIt) {
    for (const auto& [key, modifiers] : {std::pair{Qt::Key_Escape, Qt::KeyboardModifiers(Qt::NoModifier)},
                                         std::pair{Qt::Key_W, Qt::KeyboardModifiers(Qt::ControlModifier)}}) {
        show("index.html");
        press(key, modifiers);
        EXPECT_FALSE(window()->isVisible());
    }
}

TEST_F(CVHelpWindowTest, RemembersItsSize) {
    show("index.html");
    window()->resize(611, 433);
    mHelp->close();
    mHelp = std::make_unique<CVHelp>(CORVELLA_PROGRAM_FOLDER, mAlerts, mHome.userDefaults(), mURLs);
    show("index.html");
    EXPECT_EQ(window()->size(), QSize(611, 433));
}

TEST_F(CVHelpWindowTest, FitsEveryScreenWithMostOfItForThePage) {
    const QFont before = QApplication::font();
    for (const ScreenRow& screen : kScreenRows) {
        QFont font = before;
        font.setPixelSize(screen.letterPixels);
        QApplication::setFont(font);
        show("index.html");
        window()->resize(screen.inside);
        QCoreApplication::processEvents();
        EXPECT_EQ(window()->size(), screen.inside) << screen.name;
        EXPECT_GE(find<QTextBrowser>("Help Page")->width() * 2, screen.inside.width()) << screen.name;
        mHelp->close();
        mHome.userDefaults().removeKey("Help Window");
        mHome.userDefaults().removeKey("Help Window Splitter");
        mHelp = std::make_unique<CVHelp>(CORVELLA_PROGRAM_FOLDER, mAlerts, mHome.userDefaults(), mURLs);
    }
    QApplication::setFont(before);
}

TEST_F(CVHelpWindowTest, CanBeUsedWhileAModalWindowAsksForIt) {
    QDialog editor;
    editor.setWindowModality(Qt::ApplicationModal);
    editor.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
    show("Categories.html");
    press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(shownPage(), "index.html");
    editor.close();
    EXPECT_TRUE(window()->isVisible());
}

TEST_F(CVHelpWindowTest, DoesNotKeepTheProgramRunning) {
    show("index.html");
    EXPECT_FALSE(window()->testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(CVHelpWindowTest, OpensPagesOfTheWebElsewhereAndOthersNowhere) {
    show("index.html");
    struct Row {
        const char* address;
        bool isOpened;
    };
    for (const Row& row : {Row{"https://www.quenbylabs.example/", true}, Row{"http://www.quenbylabs.example/", true},
                           Row{"file:///etc/hostname", false}, Row{"mailto:somebody@quenbylabs.example", false}}) {
        const QList<QUrl> before = mURLs.opened();
        emit page().anchorClicked(QUrl(row.address));
        EXPECT_EQ(mURLs.opened().mid(before.size()), row.isOpened ? QList<QUrl>{QUrl(row.address)} : QList<QUrl>());
        EXPECT_EQ(shownPage(), "index.html");
    }
    EXPECT_EQ(mURLs.askers(), QStringList(2, "Corvella Help"));
}

TEST_F(CVHelpWindowTest, AMissingBookIsToldOfEachTime) {
    mAsker.setWindowTitle("Asker");
    CVHelp help(mHome.path(), mAlerts, mHome.userDefaults(), mURLs);
    help.showHelpPage("index.html", mAsker);
    help.showHelpPage("Categories.html", mAsker);
    ASSERT_EQ(mAlerts.shown().size(), 2);
    EXPECT_EQ(mAlerts.owners(), (QStringList{"Asker", "Asker"}));
    EXPECT_EQ(mAlerts.shown()[0].title, "The help book cannot be opened");
    EXPECT_TRUE(mAlerts.shown()[0].message.contains("corvella.qch"));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(CVHelpWindowTest, AnUnreadableBookIsToldOf) {
    ASSERT_TRUE(QDir().mkpath(mHome.path("help")));
    QFile damaged(mHome.path("help/corvella.qch"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("no book") > 0);
    damaged.close();
    CVHelp(mHome.path(), mAlerts, mHome.userDefaults(), mURLs).showHelpPage("index.html", mAsker);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_TRUE(mAlerts.shown()[0].message.contains(damaged.fileName()));
}

} // namespace
