#include "EditorWindowsFixture.h"
#include "app/CVEnding.h"
#include "start/CVTerminationSignals.h"
#include "widgets/CVAlertPanel.h"
#include "widgets/fields/CVMoneyField.h"
#include "workspace/transactions/CVTransactionTableView.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QSignalSpy>

#include <csignal>

namespace {

/// Requests to end that do not come from the user.
class Ending : public EditorWindowsFixture {
protected:
    /// Runs the event loop, calls `act` in it and then asks the program to end; returns the exit status.
    template <typename Act>
    int endAfter(Act act) {
        QTimer::singleShot(0, &window(), act);
        QTimer::singleShot(200, &mDelegate->ending(), &CVEnding::endWithoutAsking);
        return QApplication::exec();
    }

    int end() {
        return endAfter([] {});
    }

    [[nodiscard]] QByteArray savedBytes() const {
        QFile file(mHome.folders().applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella");
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void failToSaveIn(const QString& folder) {
        document().userDefaults().setString("Data File Location", folder + "/file");
        document().workbookSave();
        ASSERT_FALSE(mDelegate->saves().waitForFinished().saved);
    }

    /// Opens the editor of a cell of the first row, the payee's by default, types a text and leaves the editor open.
    void typeIntoCell(const QString& text, int column = 2) const {
        auto* const table = find<CVTransactionTableView>("mTransactionTable");
        table->setFocus();
        table->setCurrentIndex(table->model()->index(0, column));
        table->edit(table->currentIndex());
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
};

TEST_F(Ending, WithoutAskingSavesWhatIsPending) {
    document().workbookSave();
    EXPECT_EQ(end(), 0);
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(savedBytes().contains("Market"));
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(Ending, WithoutAskingKeepsWhatIsTypedInACell) {
    typeIntoCell("Bazaar");
    EXPECT_EQ(end(), 0);
    EXPECT_TRUE(savedBytes().contains("<PayToFrom>Bazaar</PayToFrom>")) << savedBytes().toStdString();
}

TEST_F(Ending, IsRefusedOnceForEachTextInACellThatCannotBeRead) {
    typeIntoCell({}, 1);
    for (const char* const typed : {"abc", "d"}) {
        QTest::keyClicks(QApplication::focusWidget(), typed);
        EXPECT_FALSE(window().close()) << "whoever typed was not told that it cannot be kept";
        ASSERT_TRUE(window().isVisible());
        const auto* const field = qobject_cast<CVMoneyField*>(QApplication::focusWidget());
        ASSERT_NE(field, nullptr);
        EXPECT_EQ(field->text(), typed);
        const auto* const reason = field->findChild<QLabel*>();
        EXPECT_TRUE(reason->isVisible());
        EXPECT_EQ(reason->text(), "Type an amount like $1,234.50.");
    }
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(Ending, WithoutAskingLetsGoWhatCannotBeRead) {
    typeIntoCell("abc", 1);
    EXPECT_EQ(end(), 0);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(Ending, WithoutAskingKeepsWhatIsTypedInAnEditor) {
    // The key press runs the editor's own event loop, so a timer types.
    QTimer typing;
    QObject::connect(&typing, &QTimer::timeout, &window(), [this, &typing] {
        auto* const editor = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!editor || QApplication::activeWindow() != editor)
            return;
        typing.stop();
        auto* const table = editor->findChild<QTableView*>();
        clickRow(*table, "Food");
        press(Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "Provisions");
        mDelegate->ending().endWithoutAsking();
    });
    QTimer::singleShot(0, &window(), [&typing] {
        typing.start(0);
        press(Qt::Key_C, kControlShift);
    });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(savedBytes().contains(">Provisions")) << savedBytes().toStdString();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Ending, WithoutAskingAnswersAQuestionAsEscapeDoes) {
    CVAlertPanel panel;
    std::optional<CVAlert::Answer> answer;
    const int status = endAfter([&] {
        answer = panel.run(&window(), {"Really?", "There is no way back.", "Delete", "Cancel"});
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(answer, CVAlert::kAlternate);
}

TEST_F(Ending, WithoutAskingClosesWindowAfterWindow) {
    std::vector<int> closed;
    const int status = endAfter([this, &closed] {
        QDialog outer(&window());
        QObject::connect(&outer, &QDialog::finished, &outer, [&closed] { closed.push_back(1); });
        QTimer::singleShot(0, &outer, [&closed, &outer] {
            QDialog inner(&outer);
            inner.exec();
            closed.push_back(2);
            // Closing the first alert shows another one.
            QMessageBox(QMessageBox::Question, "Another", "One more?", QMessageBox::Ok, &outer).exec();
            closed.push_back(3);
        });
        outer.exec();
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(closed, (std::vector<int>{2, 3, 1}));
    EXPECT_FALSE(window().isVisible());
}

TEST_F(Ending, WithoutAskingSaysWithItsStatusThatTheLastSaveFailed) {
    failToSaveIn(mHome.path("no such folder"));
    EXPECT_EQ(end(), 1);
    EXPECT_TRUE(mAlerts.shown().isEmpty()) << "it asked";
    EXPECT_FALSE(window().isVisible());
}

TEST_F(Ending, WithoutAskingTriesASaveThatFailedOnceMore) {
    failToSaveIn(mHome.path("a folder"));
    ASSERT_TRUE(QDir().mkpath(mHome.path("a folder")));
    EXPECT_EQ(end(), 0);
    EXPECT_TRUE(QFile::exists(mHome.path("a folder/file")));
}

TEST_F(Ending, OfTheSessionTriesASaveThatFailedOnceMore) {
    failToSaveIn(mHome.path("a folder"));
    ASSERT_TRUE(QDir().mkpath(mHome.path("a folder")));
    mDelegate->ending().keepEverything();
    EXPECT_TRUE(QFile::exists(mHome.path("a folder/file")));
}

TEST_F(Ending, WithoutAskingRemembersTheFrame) {
    window().resize(711, 555);
    EXPECT_EQ(end(), 0);
    mDelegate.reset();
    start();
    EXPECT_EQ(window().size(), QSize(711, 555));
}

TEST_F(Ending, OfTheSessionSavesAndLeavesTheProgramRunning) {
    typeIntoCell("Bazaar");
    mDelegate->ending().keepEverything();
    EXPECT_TRUE(savedBytes().contains("<PayToFrom>Bazaar</PayToFrom>"));
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Ending, OfTheSessionSavesWhatIsTypedInAnEditor) {
    inCategoryEditor([this](QTableView& table) {
        clickRow(table, "Food");
        press(Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "Provisions");
        mDelegate->ending().keepEverything();
        EXPECT_TRUE(savedBytes().contains(">Provisions"));
        EXPECT_TRUE(table.isVisible());
    });
}

TEST_F(Ending, OfTheSessionSavesANameThatASetWasGiven) {
    inSetEditor([this](QTableView& table) {
        rename(table, "Initial Transaction Set", "Checking");
        mDelegate->ending().keepEverything();
        EXPECT_TRUE(savedBytes().contains(">Checking"));
    });
}

TEST_F(Ending, AnotherStartBringsAMinimisedWindowBack) {
    window().showMinimized();
    ASSERT_TRUE(window().isMinimized());
    mDelegate->comeToFront();
    EXPECT_FALSE(window().isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

TEST_F(Ending, AnotherStartBringsTheWindowThatWaitsForAnAnswerToTheFront) {
    QDialog question(&window());
    question.setModal(true);
    question.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&question));
    mDelegate->comeToFront();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&question));
}

TEST(CVTerminationSignals, AnnouncesEachOfThemFromTheEventLoop) {
    const CVTerminationSignals terminations;
    QSignalSpy received(&terminations, &CVTerminationSignals::received);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        received.clear();
        ASSERT_EQ(std::raise(signal), 0);
        EXPECT_EQ(received.size(), 0) << "in the handler";
        EXPECT_TRUE(QTest::qWaitFor([&received] { return received.size() == 1; })) << signal;
    }
}

TEST(CVTerminationSignals, LeavesIgnoredOnesIgnoredAndPutsTheOthersBack) {
    std::signal(SIGHUP, SIG_IGN);
    {
        const CVTerminationSignals terminations;
        QSignalSpy received(&terminations, &CVTerminationSignals::received);
        ASSERT_EQ(std::raise(SIGHUP), 0);
        QTest::qWait(20);
        EXPECT_EQ(received.size(), 0);
    }
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

} // namespace
