#include "EditorWindowsFixture.h"
#include "widgets/CVHelpOpener.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>

namespace {

class RememberedPages final : public CVHelpOpener {
public:
    void showHelpPage(const QString& page, QWidget& /*asker*/) override { shown.append(page); }

    QStringList shown;
};

class HelpCommand : public EditorWindowsFixture {
protected:
    void SetUp() override { start(&mHelp); }

    /// The title without its mnemonic mark, as the help book writes it.
    static QString title(const QAction& action) { return action.text().remove('&'); }

    /// The commands of the menus as "Menu > Command".
    [[nodiscard]] QMap<QString, const QAction*> commands() const {
        QMap<QString, const QAction*> found;
        for (const QAction* const menu : window().menuBar()->actions()) {
            for (const QAction* const command : menu->menu()->actions())
                found.insert(title(*menu) + " > " + title(*command), command);
        }
        return found;
    }

    static QString textOfPage(const QString& name) {
        QFile file(QStringLiteral(CORVELLA_SOURCE_DIR "/resources/help/") + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return QString::fromUtf8(file.readAll()).replace("&gt;", ">").simplified();
    }

    RememberedPages mHelp;
};

TEST_F(HelpCommand, OfTheMainWindowShowsTheStartPage) {
    press(Qt::Key_F1);
    EXPECT_EQ(mHelp.shown, QStringList{"index.html"});
}

TEST_F(HelpCommand, OfTheCategoryEditorShowsItsPage) {
    inCategoryEditor([](const QTableView& table) { clickButton(table, "Help"); });
    EXPECT_EQ(mHelp.shown, QStringList{"Categories.html"});
}

TEST_F(HelpCommand, OfTheSetEditorShowsItsPage) {
    inSetEditor([](const QTableView& table) { clickButton(table, "Help"); });
    EXPECT_EQ(mHelp.shown, QStringList{"TransactionSets.html"});
}

TEST_F(HelpCommand, OfThePreferencesShowsTheirPage) {
    press(Qt::Key_Comma, Qt::ControlModifier);
    QPushButton* help = nullptr;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        for (auto* const button : widget->findChildren<QPushButton*>()) {
            if (widget != &window() && widget->isVisible() && button->accessibleName() == "Help")
                help = button;
        }
    }
    ASSERT_NE(help, nullptr);
    help->click();
    EXPECT_EQ(mHelp.shown, QStringList{"Preferences.html"});
}

TEST_F(HelpCommand, EveryShortcutOfTheMenusIsInTheBook) {
    const QString page = textOfPage("Shortcuts.html");
    int shortcuts = 0;
    for (const QAction* const command : commands()) {
        if (command->shortcut().isEmpty())
            continue;
        ++shortcuts;
        const QString key = "<kbd>" + command->shortcut().toString() + "</kbd>";
        EXPECT_TRUE(page.contains(key)) << key.toStdString() << ": " << title(*command).toStdString();
    }
    EXPECT_GT(shortcuts, 15);
}

TEST_F(HelpCommand, EveryCommandThatTheBookNamesIsInTheMenus) {
    const QStringList known = commands().keys();
    const QRegularExpression mentioned("<b>(\\w+ > [^<]+)</b>");
    int mentions = 0;
    for (const QString& name : QDir(CORVELLA_SOURCE_DIR "/resources/help").entryList({"*.html"})) {
        for (const auto& match : mentioned.globalMatch(textOfPage(name))) {
            ++mentions;
            EXPECT_TRUE(known.contains(match.captured(1)))
                << name.toStdString() << ": " << match.captured(1).toStdString();
        }
    }
    EXPECT_GT(mentions, 10);
}

} // namespace
