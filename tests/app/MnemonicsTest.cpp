#include "EditorWindowsFixture.h"
#include "base/QBUserDefaults.h"
#include "editors/CVTransactionWindowController.h"
#include "help/CVHelp.h"
#include "importing/panel/CVImportLineModel.h"
#include "importing/panel/CVImportWindow.h"
#include "kit/ScriptedURLs.h"
#include "preferences/CVPreferenceWindowController.h"
#include "widgets/CVAlertPanel.h"
#include "widgets/tables/CVTableView.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTableView>

namespace {

/// The texts of controls that are visible together, by the letter that chooses each with Alt.
using Mnemonics = QMap<QString, QStringList>;

void add(Mnemonics& found, const QString& text) {
    if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
        found[key.toString()].append(text);
}

void expectEachOnce(const Mnemonics& found, const QString& where) {
    for (auto key = found.cbegin(); key != found.cend(); ++key)
        EXPECT_EQ(key.value().size(), 1) << key.key().toStdString() << " in " << where.toStdString() << ": "
                                         << key.value().join(", ").toStdString();
}

/// Checks all items of a menu, hidden ones included, and each submenu separately.
void checkMenu(const QMenu& menu, const QString& where) {
    Mnemonics found;
    for (const QAction* const action : menu.actions()) {
        add(found, action->text());
        if (action->menu())
            checkMenu(*action->menu(), where + " > " + action->text());
    }
    expectEachOnce(found, where);
}

/// Checks the visible controls of a window, its menu bar, and each of its menus.
void checkWindow(const QWidget& window, const QString& where) {
    Mnemonics found;
    for (const auto* const widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && qobject_cast<const QMenu*>(widget) == nullptr &&
            !widget->actions().isEmpty() && widget->contextMenuPolicy() == Qt::ActionsContextMenu) {
            Mnemonics contextMenu;
            for (const QAction* const action : widget->actions())
                add(contextMenu, action->text());
            expectEachOnce(contextMenu, where + ", context menu");
        }
        if (const auto* const menu = qobject_cast<const QMenu*>(widget))
            checkMenu(*menu, where + " > " + menu->title());
        if (!widget->isVisible() || widget->window() != &window)
            continue;
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
            add(found, button->text());
        else if (const auto* const box = qobject_cast<const QGroupBox*>(widget))
            add(found, box->title());
        else if (const auto* const label = qobject_cast<const QLabel*>(widget); label && label->buddy())
            add(found, label->text());
        else if (const auto* const tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab)
                add(found, tabs->tabText(tab));
        } else if (const auto* const bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* const action : bar->actions())
                add(found, action->text());
        }
    }
    expectEachOnce(found, where);
}

/// Checks a window with each tab of `tabs` in front.
void checkTabs(const QWidget& window, QTabWidget& tabs, const QString& where) {
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        checkWindow(window, where + ", tab " + tabs.tabText(tab));
    }
}

/// Every window of the program with as many controls visible as possible.
class MnemonicsTest : public EditorWindowsFixture {
protected:
    void SetUp() override {
        start(&mHelp);
        record(day(2014, 3, 6), 30, "Market", "Food");
        for (const quint32 id : {1001, 1002}) {
            const auto set = std::make_shared<CVTransactionSet>();
            set->setUniqueID(id);
            set->setDocument(&document());
            document().transactionSets().push_back(set);
        }
        mDelegate->mainWindow()->getStarted();
    }

    /// Lets `act` open a modal window, checks that window and closes it with Escape.
    template <typename Act>
    void checkModal(Act act) {
        bool isDone = false;
        QTimer::singleShot(0, &window(), [&isDone] {
            QWidget* const modal = QApplication::activeModalWidget();
            ASSERT_NE(modal, nullptr);
            checkWindow(*modal, modal->windowTitle());
            QTest::keyClick(modal, Qt::Key_Escape);
            isDone = true;
        });
        act();
        EXPECT_TRUE(isDone);
    }

    void choose(const QString& command) const {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text().remove('&') == command)
                return action->trigger();
        }
        ADD_FAILURE() << command.toStdString();
    }

    ScriptedURLs mURLs;
    CVHelp mHelp{CORVELLA_PROGRAM_FOLDER, mAlerts, mHome.userDefaults(), mURLs};
};

TEST_F(MnemonicsTest, OfTheMainWindowWithEachTabAreUsedOnce) {
    mDelegate->mainWindow()->saveStatus().setFailed("the disk is full", CVSaveStatus::MakeRoom::Yes);
    checkTabs(window(), *window().findChild<QTabWidget*>("mMainTabView"), "main window");
    for (auto* const inner : window().findChildren<QTabWidget*>())
        checkTabs(window(), *inner, "main window");
}

TEST_F(MnemonicsTest, OfTheMainWindowThatOffersToTakeAnImportBackAreUsedOnce) {
    mDelegate->mainWindow()->saveStatus().remark("imported", CVSaveStatus::Offer::TakeBack);
    checkTabs(window(), *window().findChild<QTabWidget*>("mMainTabView"), "main window");
}

TEST_F(MnemonicsTest, OfTheWindowWithAStatementAreUsedOnce) {
    ScriptedPanels panels;
    CVImportWindow import(document(), panels, mAlerts, &mHelp, &window());
    import.read({{}, "Date,Payee,Amount\n2014-03-01,Kiosk,-1.00\n2014-03-02,Kiosk,-2.00\n2014-03-03,Work,3.00\n"});
    auto& table = *import.findChild<CVTableView*>("mImportTable");
    import.show();
    ASSERT_TRUE(QTest::qWaitFor([&table] { return table.model()->rowCount() == 3; }, 20'000));
    import.findChild<QPushButton*>("mColumnsButton")->click();
    table.setCurrentIndex(table.model()->index(0, CVImportColumns::Category));
    table.model()->setData(table.currentIndex(), "Sweets");
    ASSERT_TRUE(import.findChild<QPushButton*>("mOfferButton")->isVisible());
    checkWindow(import, "import");
}

TEST_F(MnemonicsTest, OfTheEditorsAreUsedOnce) {
    checkModal([this] { choose("Edit Categories…"); });
    checkModal([this] { choose("Transaction Sets…"); });
    checkModal([this] { CVTransactionWindowController(document(), document().transactions(), &window()).exec(); });
}

TEST_F(MnemonicsTest, OfTheWindowForACategoryAreUsedOnce) {
    auto* const table = window().findChild<QTableView*>("mTransactionTable");
    table->selectAll();
    checkModal([this] {
        choose("Set Category…");
        QTest::qWait(0);
    });
}

TEST_F(MnemonicsTest, OfThePreferencesWithEachPaneAndTheirSheetAreUsedOnce) {
    mDelegate->showPreferences();
    CVPreferenceWindowController& preferences = *mDelegate->preferences();
    checkTabs(preferences, *preferences.findChild<QTabWidget*>(), "preferences");
    mDelegate->preferences()->displayUpdatePane();
    for (auto* const button : preferences.findChildren<QPushButton*>()) {
        if (button->accessibleName() == "Learn More")
            checkModal([button] {
                button->click();
                QTest::qWait(0);
            });
    }
}

TEST_F(MnemonicsTest, OfAlertsAboutAndHelpAreUsedOnce) {
    checkModal([this] { CVAlertPanel().run(&window(), {"Really?", "It matters.", "Try Again", "Cancel", "Quit"}); });
    checkModal([this] { choose("About Corvella"); });
    mDelegate->showHelp();
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->windowTitle() == "Corvella Help")
            checkTabs(*widget, *widget->findChild<QTabWidget*>(), "help");
    }
    mHelp.close();
}

} // namespace
