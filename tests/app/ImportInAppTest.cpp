#include "ShellFixture.h"
#include "app/CVEnding.h"
#include "app/CVImportOperations.h"
#include "importing/CVNotesFile.h"
#include "importing/CVNotesJSON.h"
#include "importing/panel/CVImportLineModel.h"
#include "kit/CountingSaver.h"
#include "widgets/tables/CVTableView.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QClipboard>
#include <QDialog>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr const char* kStatement = "Date,Description,Amount\n"
                                   "2014-03-01,Market,-10.00\n"
                                   "2014-03-02,Baker,-3.50\n"
                                   "2014-03-03,Work,2000.00\n";

/// Statements in the real program.
class ImportInApp : public ShellFixture {
protected:
    [[nodiscard]] QString write(const QByteArray& bytes = kStatement) const {
        QFile file(mHome.path("statement.csv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    using Act = std::function<void(QDialog& window)>;
    /// Does that in the window with the statement, once it is read.
    void inWindow(Act act) {
        mTimer.callOnTimeout(&mTimer, [this, act = std::move(act)] {
            auto* const window = qobject_cast<CVImportWindow*>(QApplication::activeModalWidget());
            if (!window || import(*window).accessibleDescription() == "The statement is being read.")
                return;
            mTimer.stop();
            mTimer.disconnect();
            act(*window);
        });
        mTimer.start(5);
    }
    /// Gives all lines a category and imports them.
    void agree() { inWindow(importAll); }
    static void importAll(QDialog& window) {
        auto& table = *window.findChild<CVTableView*>("mImportTable");
        const auto giveCategories = [&] {
            for (int row = 0; row < table.model()->rowCount(); ++row)
                table.model()->setData(table.model()->index(row, CVImportColumns::Category), "Imported");
            return import(window).isEnabled();
        };
        EXPECT_TRUE(QTest::qWaitFor(giveCategories, kPatience)) << import(window).accessibleDescription().toStdString();
        QTest::mouseClick(&import(window), Qt::LeftButton);
    }
    [[nodiscard]] static QString payeesIn(const QDialog& window) {
        const auto& model = *window.findChild<CVTableView*>("mImportTable")->model();
        QStringList payees;
        for (int row = 0; row < model.rowCount(); ++row)
            payees.append(model.index(row, CVImportColumns::ToFrom).data().toString());
        return payees.join(u',');
    }
    [[nodiscard]] static QPushButton& import(const QDialog& window) {
        return *window.findChild<QPushButton*>("mImportButton");
    }
    void importStatement() {
        mPanels.answer(write());
        agree();
        choose("Import…");
    }

    [[nodiscard]] QAction& action(const QString& text) const {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text().remove('&') == text)
                return *action;
        }
        qFatal("there is no %s", qUtf8Printable(text));
    }
    [[nodiscard]] QString remark() const {
        return mDelegate->mainWindow()->saveStatus().findChild<QLabel*>("mRemark")->text();
    }
    [[nodiscard]] QPushButton& takeBackButton() const { return *window().findChild<QPushButton*>("mTakeBackButton"); }
    [[nodiscard]] QStringList payees() const {
        QStringList payees;
        for (const auto& transaction : document().transactions())
            payees.append(transaction->payTo());
        payees.sort();
        return payees;
    }
    /// Whether the window takes a drag with these places.
    [[nodiscard]] bool drop(const QList<QUrl>& places) const {
        QMimeData data;
        data.setUrls(places);
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window(), &drop);
        return drop.isAccepted();
    }

    QTimer mTimer;
};

TEST_F(ImportInApp, AChosenStatementComesInAsOneChangeAndCanBeTakenBack) {
    startWithBudget();
    EXPECT_FALSE(action("Take Back Import").isEnabled());
    EXPECT_EQ(action("Import…").shortcut(), QKeySequence("Ctrl+I"));
    importStatement();
    EXPECT_EQ(mPanels.filesAsked().size(), 1);
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market", "Market", "Work"}));
    EXPECT_EQ(remark(), "3 transactions imported");
    ASSERT_TRUE(takeBackButton().isVisible());
    EXPECT_EQ(takeBackButton().accessibleName(), "Take Back Import");
    saved();
    QTest::mouseClick(&takeBackButton(), Qt::LeftButton);
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_EQ(remark(), "3 transactions taken back");
    EXPECT_FALSE(takeBackButton().isVisible());
    EXPECT_FALSE(action("Take Back Import").isEnabled());
    EXPECT_EQ(document().doesCategoryNameExist("Imported"), nullptr);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(ImportInApp, TheWayBackStaysAfterTheNextRemark) {
    startWithBudget();
    importStatement();
    mDelegate->mainWindow()->saveStatus().remark("something else");
    EXPECT_TRUE(takeBackButton().isVisible());
    choose("Take Back Import");
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_FALSE(takeBackButton().isVisible());
}

TEST_F(ImportInApp, SeveralImportsAreTakenBackOneAfterTheOther) {
    startWithBudget();
    importStatement();
    mPanels.answer(write("Date,Description,Amount\n2014-02-01,Florist,-20.00\n2014-02-02,Florist,-21.00\n"));
    agree();
    choose("Import…");
    EXPECT_EQ(payees().count("Florist"), 2);
    choose("Take Back Import");
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market", "Market", "Work"}));
    EXPECT_TRUE(takeBackButton().isVisible()) << "for the earlier one";
    choose("Take Back Import");
    EXPECT_EQ(payees(), QStringList{"Market"});
}

TEST_F(ImportInApp, EditedTransactionsAreAskedAbout) {
    startWithBudget();
    importStatement();
    for (const auto& transaction : document().transactions()) {
        if (transaction->payTo() == "Baker")
            transaction->setAmount(99);
    }
    mAlerts.answer({CVAlert::kAlternate});
    choose("Take Back Import");
    ASSERT_EQ(titles(), QStringList{"1 of the imported transactions was edited since"});
    EXPECT_EQ(payees().size(), 4) << "Cancel";
    mAlerts.answer({CVAlert::kDefault});
    choose("Take Back Import");
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market"})) << "Keep Edited";
    EXPECT_EQ(remark(), "2 transactions taken back");
}

TEST_F(ImportInApp, EditedTransactionsGoTooWhenTheUserSaysSo) {
    startWithBudget();
    importStatement();
    for (const auto& transaction : document().transactions()) {
        if (transaction->payTo() == "Baker")
            transaction->setAmount(99);
    }
    mAlerts.answer({CVAlert::kOther});
    choose("Take Back Import");
    EXPECT_EQ(payees(), QStringList{"Market"});
}

TEST_F(ImportInApp, CancelLeavesNothing) {
    startWithBudget();
    const quint32 lastID = document().uniqueID();
    mPanels.answer(write());
    inWindow(
        [](QDialog& window) { QTest::mouseClick(window.findChild<QPushButton*>("mCancelButton"), Qt::LeftButton); });
    choose("Import…");
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_EQ(document().uniqueID(), lastID);
    EXPECT_EQ(remark(), "");
    EXPECT_FALSE(QFile::exists(document().dataFiles().value(0) + ".import"));
}

TEST_F(ImportInApp, WhatWasImportedIsKnownTheNextTime) {
    startWithBudget();
    importStatement();
    saved();
    mPanels.answer(write());
    QStringList notes;
    inWindow([&notes](QDialog& window) {
        auto& table = *window.findChild<CVTableView*>("mImportTable");
        for (int row = 0; row < table.model()->rowCount(); ++row)
            notes.append(table.model()->index(row, CVImportColumns::Note).data().toString());
        window.reject();
    });
    choose("Import…");
    ASSERT_EQ(notes.size(), 3);
    for (const QString& note : std::as_const(notes))
        EXPECT_TRUE(note.contains("already")) << note.toStdString();
}

TEST_F(ImportInApp, TheAccountsOfAFileComeInOneAfterTheOther) {
    startWithBudget();
    mPanels.answer(write("!Account\nNCash\n^\n!Type:Cash\nD03/24/2014\nPKiosk\nT-4.00\n^\n"
                         "!Account\nNBank\n^\n!Type:Bank\nD03/25/2014\nPRent\nT-400.00\n^\n"));
    QStringList windows;
    inWindow([this, &windows](QDialog& first) {
        const auto buttons = first.findChildren<QPushButton*>();
        const auto bank = std::find_if(buttons.begin(), buttons.end(),
                                       [](const auto* button) { return button->text().startsWith("Bank"); });
        ASSERT_NE(bank, buttons.end());
        (*bank)->click();
        inWindow([this, &windows](QDialog& chosen) {
            EXPECT_TRUE(QTest::qWaitFor([&chosen] { return payeesIn(chosen) == "Rent"; }, kPatience));
            windows.append(payeesIn(chosen));
            importAll(chosen);
            inWindow([&windows](QDialog& next) {
                windows.append(payeesIn(next));
                importAll(next);
            });
        });
    });
    choose("Import…");
    EXPECT_EQ(windows, (QStringList{"Rent", "Kiosk"}));
    EXPECT_EQ(payees(), (QStringList{"Kiosk", "Market", "Rent"}));
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(ImportInApp, WhatAnImportTaughtGoesWithIt) {
    startWithBudget();
    importStatement();
    saved();
    const CVNotesFile notes(document().dataFiles().value(0));
    const auto knowsTargets = [&] { return notes.read().notes.contents().lastTargets.has_value(); };
    EXPECT_TRUE(QTest::qWaitFor(knowsTargets, 30'000));
    choose("Take Back Import");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !knowsTargets(); }, 30'000));
    EXPECT_EQ(CVJSONOfNotes(notes.read().notes), CVJSONOfNotes({}));
}

TEST_F(ImportInApp, ADroppedFileIsShownUnlessAWindowWaits) {
    startWithBudget();
    const QUrl statement = QUrl::fromLocalFile(write());
    agree();
    EXPECT_TRUE(drop({statement}));
    ASSERT_TRUE(QTest::qWaitFor([this] { return remark() == "3 transactions imported"; }, kPatience));
    EXPECT_FALSE(drop({statement, statement}));
    EXPECT_FALSE(drop({QUrl("https://www.example.com/statement.csv")}));
    EXPECT_FALSE(drop({}));
    QDialog modal(&window());
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    EXPECT_FALSE(drop({statement}));
}

TEST_F(ImportInApp, RowsOnTheClipboardAreAStatement) {
    startWithBudget();
    QGuiApplication::clipboard()->setText(QString::fromLatin1(kStatement).replace(',', '\t'));
    agree();
    choose("Import from Clipboard…");
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market", "Market", "Work"}));
    QGuiApplication::clipboard()->clear();
    choose("Import from Clipboard…");
    EXPECT_TRUE(remark().startsWith("There are no rows on the clipboard."));
}

TEST_F(ImportInApp, AReadOnlyBudgetImportsNothing) {
    startWithBudget();
    CountingSaver saver;
    saver.setReadOnly();
    document().setSaver(&saver);
    mDelegate->mainWindow()->showReadOnly("Read-only: another program has it open.");
    mDelegate->mainWindow()->reloadAllTables();
    EXPECT_FALSE(action("Import…").isEnabled());
    EXPECT_FALSE(action("Import from Clipboard…").isEnabled());
    EXPECT_FALSE(drop({QUrl::fromLocalFile(write())}));
    mDelegate->importOperations().importFile(write());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    document().setSaver(nullptr);
}

TEST_F(ImportInApp, TheProgramEndsWhileAStatementIsShown) {
    startWithBudget();
    mPanels.answer(write());
    inWindow([this](QDialog& window) {
        auto& table = *window.findChild<CVTableView*>("mImportTable");
        table.model()->setData(table.model()->index(0, CVImportColumns::Category), "Changed");
        mDelegate->ending().endWithoutAsking();
    });
    QTimer::singleShot(0, mDelegate.get(), [this] { choose("Import…"); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_FALSE(window().isVisible());
}

} // namespace
