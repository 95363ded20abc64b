#include "importing/panel/CVImportWindow.h"

#include "importing/CVImportNotes.h"
#include "importing/CVNotesFile.h"
#include "importing/panel/CVImportLineModel.h"
#include "importing/panel/CVImportLineTable.h"
#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedPanels.h"
#include "widgets/CVHelpOpener.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

class ImportHelp final : public CVHelpOpener {
public:
    void showHelpPage(const QString& page, QWidget& /*asker*/) override { mPages.append(page); }
    QStringList mPages;
};

/// A budget in which the market was paid twice, and the window with a statement.
class CVImportWindowTest : public testing::Test {
protected:
    CVImportWindowTest() {
        mBudget.set("Checking", 1).set("Income", 2).currentSet(1).category("Food", 1).category("Garden", 2).lastID(2);
        for (const int dayOfMonth : {1, 8})
            mBudget.transaction(
                {.date = day(2014, 2, dayOfMonth), .amount = 12.5, .payTo = "Market", .categoryID = 1, .setID = 1});
        mBudget.inOrder();
        mSaver.setDataFiles({mHome.path("Corvella Data.corvella")});
        mBudget.document().setSaver(&mSaver);
    }

    void read(const QByteArray& statement) {
        makeWindow();
        mWindow->read({write("statement.csv", statement), {}});
        ASSERT_TRUE(waitUntilRead());
    }
    /// A market, a kiosk and a salary.
    void readUsual() {
        read("Date,Description,Amount\n"
             "2014-03-01,Market,-10.00\n"
             "2014-03-02,Kiosk,-3.50\n"
             "2014-03-03,Work,2000.00\n"
             "2014-03-04,Kiosk,-4.50\n");
        ASSERT_EQ(model().rowCount(), 4);
    }
    void makeWindow() {
        mWindow = std::make_unique<CVImportWindow>(mBudget.document(), mPanels, mAlerts, &mHelp, nullptr);
        mTester =
            std::make_unique<QAbstractItemModelTester>(&model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        mWindow->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    }
    QString write(const QString& name, const QByteArray& bytes) {
        QFile file(mHome.path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    [[nodiscard]] bool waitUntilRead() const {
        return QTest::qWaitFor([this] { return !message().startsWith("Reading") && !isBusy(); }, 30'000);
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        auto* const widget = mWindow->findChild<Widget*>(name);
        if (!widget)
            qFatal("the window has no %s", name);
        return *widget;
    }
    [[nodiscard]] CVImportLineTable& table() const { return find<CVImportLineTable>("mImportTable"); }
    [[nodiscard]] CVImportLineModel& model() const { return *qobject_cast<CVImportLineModel*>(table().model()); }
    [[nodiscard]] QPushButton& button(const char* name) const { return find<QPushButton>(name); }
    void click(const char* name) const { QTest::mouseClick(&button(name), Qt::LeftButton); }
    [[nodiscard]] QString text(const char* name) const { return find<QLabel>(name).text(); }
    [[nodiscard]] QString message() const { return table().accessibleDescription(); }
    [[nodiscard]] bool isBusy() const {
        return button("mImportButton").accessibleDescription() == "The statement is being read.";
    }
    [[nodiscard]] QString cell(int row, int column) const { return model().index(row, column).data().toString(); }
    [[nodiscard]] QStringList column(int column) const {
        QStringList texts;
        for (int row = 0; row < model().rowCount(); ++row)
            texts.append(cell(row, column));
        return texts;
    }
    void select(int row) const { table().setCurrentIndex(model().index(row, CVImportColumns::Category)); }
    /// Types a category into the current row as a user does.
    void typeCategory(const QString& category) const {
        table().setFocus();
        QTest::keyClick(&table(), Qt::Key_Return);
        QTest::keyClicks(mWindow->focusWidget(), category);
        QTest::keyClick(mWindow->focusWidget(), Qt::Key_Return);
        // The editor commits in the next event.
        QCoreApplication::processEvents();
    }
    void choose(const char* name, const QString& item) const {
        auto& box = find<QComboBox>(name);
        const int index = box.findText(item);
        ASSERT_GE(index, 0) << item.toStdString();
        box.setCurrentIndex(index);
        emit box.activated(index);
        ASSERT_TRUE(waitUntilRead());
    }

    FixedToday mToday{day(2014, 3, 7)};
    ScratchHome mHome;
    CountingSaver mSaver;
    BudgetBuilder mBudget;
    ScriptedPanels mPanels;
    ScriptedAlerts mAlerts;
    ImportHelp mHelp;
    std::unique_ptr<CVImportWindow> mWindow;
    std::unique_ptr<QAbstractItemModelTester> mTester;
};

TEST_F(CVImportWindowTest, ShowsTheLinesAsTheyWillBeRecordedAndChangesNothing) {
    readUsual();
    EXPECT_EQ(column(CVImportColumns::ToFrom), (QStringList{"Market", "Kiosk", "Work", "Kiosk"}));
    EXPECT_EQ(column(CVImportColumns::Amount), (QStringList{"$10.00", "$3.50", "$2,000.00", "$4.50"}));
    EXPECT_EQ(column(CVImportColumns::Into), (QStringList{"Checking", "Checking", "Income", "Checking"}));
    EXPECT_EQ(cell(0, CVImportColumns::Category), "Food");
    EXPECT_EQ(mWindow->windowTitle(), "Import: statement.csv");
    EXPECT_FALSE(text("mSummary").isEmpty());
    EXPECT_TRUE(mWindow->isModal());
    EXPECT_TRUE(table().hasFocus());
    mWindow->reject();
    EXPECT_TRUE(mAlerts.shown().isEmpty()) << "nothing was changed";
    EXPECT_EQ(mBudget.document().transactions().size(), 2U);
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVImportWindowTest, NothingIsImportedBeforeEveryLineHasACategory) {
    readUsual();
    EXPECT_FALSE(button("mImportButton").isEnabled());
    EXPECT_EQ(text("mObstacle"), "3 transactions have no category yet.");
    select(2);
    typeCategory("Pay");
    EXPECT_EQ(text("mObstacle"), "2 transactions have no category yet.");
    auto& box = find<QComboBox>("mGiveBox");
    box.setEditText("Sweets");
    click("mGiveButton");
    EXPECT_EQ(column(CVImportColumns::Category), (QStringList{"Food", "Sweets", "Pay", "Sweets"}));
    EXPECT_EQ(text("mObstacle"), "");
    EXPECT_EQ(button("mImportButton").text(), "&Import 4 Transactions");
    EXPECT_FALSE(box.isVisible());
    QTest::keyClick(mWindow.get(), Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(mWindow->result(), QDialog::Accepted);
    const auto order = mWindow->order();
    ASSERT_EQ(order.lines.size(), 4U);
    EXPECT_EQ(order.lines[3].hundredths, 450);
    EXPECT_EQ(order.targets.set, 1U);
    EXPECT_EQ(order.targets.incomeSet, 2U);
    ASSERT_TRUE(order.statement);
    EXPECT_EQ(order.statement->lines.size(), 4U);
}

TEST_F(CVImportWindowTest, ACategoryIsOfferedToTheOthersOfThePayee) {
    readUsual();
    EXPECT_FALSE(button("mOfferButton").isVisible());
    select(1);
    typeCategory("Sweets");
    ASSERT_TRUE(button("mOfferButton").isVisible());
    EXPECT_EQ(text("mOfferText"), "“Kiosk” has 1 other line here.");
    click("mOfferButton");
    EXPECT_EQ(column(CVImportColumns::Category), (QStringList{"Food", "Sweets", "", "Sweets"}));
    EXPECT_FALSE(button("mOfferButton").isVisible());
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(CVImportWindowTest, SpaceChecksAllSelectedLines) {
    readUsual();
    table().selectAll();
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_EQ(text("mObstacle"), "No line is checked.");
    EXPECT_EQ(button("mImportButton").text(), "&Import");
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_EQ(button("mImportButton").text(), "&Import 4 Transactions");
}

TEST_F(CVImportWindowTest, CountsShowOnlyTheirLines) {
    readUsual();
    QPushButton* without = nullptr;
    for (auto* const count : mWindow->findChildren<QPushButton*>()) {
        if (count->text() == "3 without a category")
            without = count;
    }
    ASSERT_TRUE(without && without->isVisible());
    QTest::mouseClick(without, Qt::LeftButton);
    EXPECT_EQ(column(CVImportColumns::ToFrom), (QStringList{"Kiosk", "Work", "Kiosk"}));
    QTest::mouseClick(without, Qt::LeftButton);
    EXPECT_EQ(model().rowCount(), 4);
}

TEST_F(CVImportWindowTest, WhatTheStatementLeavesOpenIsAskedBeforeAnythingIsImported) {
    read("Date,Description,Amount\n03/04/2014,Market,-10.00\n05/06/2014,Market,-12.00\n");
    const auto answers = mWindow->findChildren<QPushButton*>("mAnswerButton");
    ASSERT_EQ(answers.size(), 2);
    EXPECT_TRUE(answers[0]->hasFocus());
    EXPECT_FALSE(text("mQuestion").isEmpty());
    EXPECT_FALSE(button("mImportButton").isEnabled());
    EXPECT_EQ(text("mObstacle"), "Answer the question above first.");
    const QString before = cell(0, CVImportColumns::Date);
    // The second answer gives the other day.
    QTest::mouseClick(answers[1], Qt::LeftButton);
    ASSERT_TRUE(waitUntilRead());
    EXPECT_EQ(text("mObstacle"), "");
    EXPECT_NE(cell(0, CVImportColumns::Date), QString());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !mWindow->findChild<QLabel*>("mQuestion"); }));
    EXPECT_EQ(button("mImportButton").text(), "&Import 2 Transactions");
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(CVImportWindowTest, WhereMoneyGoesChangesTheLinesAndKeepsWhatWasEdited) {
    readUsual();
    select(2);
    typeCategory("Pay");
    choose("mInSetBox", "The same set, as negative amounts");
    EXPECT_EQ(cell(2, CVImportColumns::Amount), "-$2,000.00");
    EXPECT_EQ(cell(2, CVImportColumns::Category), "Pay");
    choose("mInSetBox", "Nowhere: left out");
    EXPECT_EQ(cell(2, CVImportColumns::Note), "money in is left out");
    EXPECT_EQ(button("mImportButton").text(), "&Import 3 Transactions");
    choose("mInSetBox", "Checking");
    EXPECT_TRUE(text("mObstacle").startsWith("Choose another set for money in"));
    choose("mOutSetBox", "New Set…");
    find<QLineEdit>("mOutNameField").clear();
    QTest::keyClick(&find<QLineEdit>("mOutNameField"), Qt::Key_Tab);
    ASSERT_TRUE(waitUntilRead());
    EXPECT_EQ(text("mObstacle"), "Name the new set.");
}

TEST_F(CVImportWindowTest, ARefundIsMovedToTheOtherSide) {
    readUsual();
    select(2);
    for (QAction* const action : table().actions()) {
        if (action->text() == "&Move to Money Out")
            action->trigger();
    }
    EXPECT_EQ(cell(2, CVImportColumns::Amount), "-$2,000.00");
    EXPECT_EQ(cell(2, CVImportColumns::Into), "Checking");
}

TEST_F(CVImportWindowTest, ALineIsSplitAndPutTogetherAgain) {
    readUsual();
    select(0);
    QTimer::singleShot(0, mWindow.get(), [] {
        QWidget* const split = QApplication::activeModalWidget();
        QTest::keyClicks(split->focusWidget(), "4");
        QTest::keyClick(split->focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(split->focusWidget(), "Gard");
        QTest::keyClick(split->focusWidget(), Qt::Key_Return);
    });
    click("mSplitButton");
    ASSERT_EQ(model().rowCount(), 5);
    EXPECT_EQ(cell(0, CVImportColumns::Amount), "$6.00");
    EXPECT_EQ(cell(1, CVImportColumns::Amount), "$4.00");
    EXPECT_EQ(cell(1, CVImportColumns::Category), "Garden");
    EXPECT_EQ(cell(1, CVImportColumns::Note), "a part of line 2");
    EXPECT_EQ(button("mSplitButton").text(), "&Put Together");
    click("mSplitButton");
    EXPECT_EQ(model().rowCount(), 4);
    EXPECT_EQ(cell(0, CVImportColumns::Amount), "$10.00");
}

TEST_F(CVImportWindowTest, LinesThatCannotBeReadStandThereWithTheReasonAndStopNoOther) {
    read("Date,Description,Amount\n2014-03-01,Market,-10.00\n2014-03-02,Market,\n2014-03-03,Market,-5.00\n");
    ASSERT_EQ(model().rowCount(), 3);
    EXPECT_TRUE(cell(1, CVImportColumns::Note).startsWith("cannot be read: "))
        << cell(1, CVImportColumns::Note).toStdString();
    EXPECT_EQ(button("mImportButton").text(), "&Import 2 Transactions");
    EXPECT_TRUE(button("mImportButton").isEnabled());
    select(1);
    EXPECT_FALSE(button("mSplitButton").isEnabled());
}

TEST_F(CVImportWindowTest, ABadFileIsExplainedAndAnotherOneCanBeChosen) {
    read(QByteArray("MZ\0\1\2\3\0\0\0", 9));
    EXPECT_FALSE(message().isEmpty());
    EXPECT_EQ(text("mSummary"), "This statement cannot be read.");
    EXPECT_FALSE(button("mImportButton").isEnabled());
    EXPECT_FALSE(button("mColumnsButton").isEnabled());
    ASSERT_TRUE(button("mAnotherButton").isVisible());
    EXPECT_TRUE(button("mAnotherButton").hasFocus());
    mPanels.answer(write("other.csv", "Date,Description,Amount\n2014-03-01,Market,-10.00\n2014-03-02,Market,-11.00\n"));
    click("mAnotherButton");
    ASSERT_TRUE(waitUntilRead());
    EXPECT_EQ(mPanels.filesAsked().size(), 1);
    EXPECT_EQ(mWindow->windowTitle(), "Import: other.csv");
    EXPECT_EQ(model().rowCount(), 2);
    EXPECT_FALSE(button("mAnotherButton").isVisible());
}

TEST_F(CVImportWindowTest, CopiedRowsAreAStatementToo) {
    makeWindow();
    mWindow->read({{}, "Date\tDescription\tAmount\n2014-03-01\tMarket\t-10.00\n2014-03-02\tMarket\t-11.00\n"});
    ASSERT_TRUE(waitUntilRead());
    EXPECT_EQ(mWindow->windowTitle(), "Import from Clipboard");
    EXPECT_EQ(model().rowCount(), 2);
}

TEST_F(CVImportWindowTest, TheMeaningOfAColumnCanBeChanged) {
    read("Date,Payee,Purpose,Amount\n2014-03-01,Market,bread,-10.00\n2014-03-02,Baker,rolls,-11.00\n");
    auto& rows = find<CVTableView>("mStatementTable");
    ASSERT_TRUE(rows.isVisible()) << "guesses are shown the first time";
    ASSERT_TRUE(QTest::qWaitFor([&rows] { return rows.indexWidget(rows.model()->index(0, 2)) != nullptr; }));
    EXPECT_EQ(rows.model()->index(1, 1).data().toString(), "Market");
    auto* const purpose = qobject_cast<QComboBox*>(rows.indexWidget(rows.model()->index(0, 2)));
    EXPECT_EQ(purpose->accessibleName(), "Meaning of “Purpose”");
    EXPECT_EQ(purpose->currentText(), "For");
    EXPECT_EQ(cell(0, CVImportColumns::For), "bread");
    const int ignored = purpose->findText("left out");
    purpose->setCurrentIndex(ignored);
    emit purpose->activated(ignored);
    ASSERT_TRUE(waitUntilRead());
    EXPECT_EQ(cell(0, CVImportColumns::For), "");
    EXPECT_EQ(cell(0, CVImportColumns::ToFrom), "Market");
}

TEST_F(CVImportWindowTest, AWrongChoiceOfAColumnCanBeTakenBackAndLosesNothing) {
    readUsual();
    select(1);
    typeCategory("Sweets");
    auto& rows = find<CVTableView>("mStatementTable");
    const auto chooseMeaning = [&](const QString& meaning) {
        const auto popUp = [&rows] { return qobject_cast<QComboBox*>(rows.indexWidget(rows.model()->index(0, 0))); };
        ASSERT_TRUE(QTest::qWaitFor([&popUp] { return popUp() != nullptr; }));
        popUp()->setCurrentIndex(popUp()->findText(meaning));
        emit popUp()->activated(popUp()->currentIndex());
        ASSERT_TRUE(waitUntilRead());
        QCoreApplication::processEvents();
    };
    chooseMeaning("left out");
    EXPECT_EQ(message(), "No column holds the days. Please say which one does.");
    EXPECT_FALSE(button("mImportButton").isEnabled());
    EXPECT_TRUE(button("mColumnsButton").isEnabled());
    EXPECT_TRUE(rows.isVisible());
    EXPECT_EQ(rows.model()->index(1, 1).data().toString(), "Market");
    chooseMeaning("Date");
    ASSERT_EQ(model().rowCount(), 4);
    EXPECT_EQ(cell(1, CVImportColumns::Category), "Sweets");
    choose("mEncodingBox", "UTF-16LE");
    EXPECT_EQ(text("mSummary"), "This statement cannot be read.");
    EXPECT_TRUE(button("mColumnsButton").isEnabled());
    choose("mEncodingBox", "UTF-8");
    EXPECT_EQ(cell(1, CVImportColumns::Category), "Sweets");
}

TEST_F(CVImportWindowTest, TheColumnsAreShownUntilTheyAreKnown) {
    const QByteArray statement = "Date,Description,Amount\n2014-03-01,Market,-10.00\n2014-03-02,Market,-12.00\n";
    read(statement);
    EXPECT_TRUE(find<CVTableView>("mStatementTable").isVisible());
    EXPECT_TRUE(button("mColumnsButton").isChecked());
    CVImportNotes notes;
    const auto order = mWindow->order();
    notes.noteMapping(order.statement->headerDigest, {}, order.statement->mapping);
    ASSERT_TRUE(CVNotesFile(mHome.path("Corvella Data.corvella")).write(notes, QDateTime::currentDateTime()).ok());
    read(statement);
    EXPECT_FALSE(find<CVTableView>("mStatementTable").isVisible());
    EXPECT_FALSE(button("mColumnsButton").isChecked());
}

TEST_F(CVImportWindowTest, TheYearAndTheSignCanBeChosenOtherwise) {
    read("Date,Description,Amount\n15.02.,Market,10.00\n16.02.,Baker,12.00\n");
    auto& year = find<QSpinBox>("mYearBox");
    EXPECT_TRUE(year.isEnabled());
    year.setValue(2009);
    ASSERT_TRUE(waitUntilRead());
    EXPECT_EQ(cell(0, CVImportColumns::Date), "2/15/09");
    year.setValue(2008);
    ASSERT_TRUE(waitUntilRead());
    EXPECT_EQ(cell(0, CVImportColumns::Date), "2/15/08");
    choose("mSignBox", "Money out");
    EXPECT_EQ(cell(0, CVImportColumns::Into), "Checking");
    choose("mSignBox", "Money in");
    EXPECT_EQ(cell(0, CVImportColumns::Into), "Income");
    read("Date,Description,Amount\n2014-03-01,Market,-10.00\n2014-03-02,Market,-12.00\n");
    EXPECT_FALSE(find<QSpinBox>("mYearBox").isEnabled());
}

TEST_F(CVImportWindowTest, AnEditedLineIsLookedForAgain) {
    read("Date,Description,Amount\n2014-02-01,Market,-10.00\n2014-03-02,Market,-12.50\n");
    EXPECT_EQ(cell(0, CVImportColumns::Note), "");
    const auto noteBecomes = [this](int row, const QString& note) {
        return QTest::qWaitFor([&] { return cell(row, CVImportColumns::Note) == note; }, 30'000);
    };
    model().setData(model().index(0, CVImportColumns::Amount), 12.5);
    EXPECT_TRUE(noteBecomes(0, "recorded on 2/1 already")) << cell(0, CVImportColumns::Note).toStdString();
    EXPECT_EQ(button("mImportButton").text(), "&Import 1 Transaction");
    model().setData(model().index(1, CVImportColumns::Date), QVariant::fromValue(std::optional(day(2014, 2, 8))));
    EXPECT_TRUE(noteBecomes(1, "recorded on 2/8 already")) << cell(1, CVImportColumns::Note).toStdString();
    model().setData(model().index(1, CVImportColumns::Date), QVariant::fromValue(std::optional(day(2014, 3, 2))));
    EXPECT_TRUE(noteBecomes(1, ""));
}

TEST_F(CVImportWindowTest, WhatIsLookedForAgainIsImportedOnlyAsItWasSeen) {
    const QByteArray statement = "Date,Description,Amount\n2014-02-01,Market,-10.00\n2014-03-02,Market,-13.50\n";
    const auto importAfter = [this](double amount) {
        model().setData(model().index(0, CVImportColumns::Amount), amount);
        click("mImportButton");
        EXPECT_TRUE(mWindow->isVisible()) << "before it is found";
        const auto isFound = [this] {
            return !mWindow->isVisible() || cell(0, CVImportColumns::Note) == "recorded on 2/1 already";
        };
        EXPECT_TRUE(QTest::qWaitFor(isFound, 30'000));
    };
    read(statement);
    importAfter(11);
    EXPECT_EQ(mWindow->result(), QDialog::Accepted);
    read(statement);
    importAfter(12.5);
    EXPECT_TRUE(mWindow->isVisible());
    EXPECT_EQ(mWindow->result(), QDialog::Rejected);
}

TEST_F(CVImportWindowTest, WhatTheLastImportWithTheSameColumnsSaidIsUsedAgain) {
    const QByteArray statement = "Date,Description,Amount\n03/04/2014,Market,-10.00\n05/06/2014,Market,-12.00\n";
    read(statement);
    CVImportNotes notes;
    const auto order = mWindow->order();
    CVStatementMapping mapping = order.statement->questions.at(0).answers.at(1).with;
    notes.noteMapping(order.statement->headerDigest, {}, mapping);
    CVImportTargets targets;
    targets.set = 2;
    targets.income = CVImportTargets::Income::LeftOut;
    notes.noteTargets(mBudget.document(), order.statement->headerDigest, targets);
    ASSERT_TRUE(CVNotesFile(mHome.path("Corvella Data.corvella")).write(notes, QDateTime::currentDateTime()).ok());
    read(statement);
    EXPECT_TRUE(mWindow->findChildren<QPushButton*>("mAnswerButton").isEmpty());
    EXPECT_EQ(text("mRemark"), "Read like the last statement with these columns.");
    EXPECT_EQ(mWindow->order().targets, targets);
}

TEST_F(CVImportWindowTest, CancelAsksOnlyAboutWhatTheUserChanged) {
    readUsual();
    select(1);
    typeCategory("Sweets");
    mAlerts.answer({CVAlert::kDefault});
    click("mCancelButton");
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown()[0].title, "Do you want to give up this import?");
    EXPECT_EQ(mAlerts.shown()[0].escapeAnswer, CVAlert::kDefault);
    EXPECT_TRUE(mWindow->isVisible());
    select(3);
    typeCategory("Sweets");
    mAlerts.answer({CVAlert::kAlternate});
    click("mCancelButton");
    EXPECT_FALSE(mWindow->isVisible());
}

TEST_F(CVImportWindowTest, ClosingTheProgramIsNotHeldUpByTheQuestion) {
    readUsual();
    select(1);
    typeCategory("Sweets");
    mAlerts.answer({CVAlert::kDefault});
    mWindow->reject();
    mWindow->reject();
    EXPECT_FALSE(mWindow->isVisible()) << "nothing was changed since the question";
    EXPECT_EQ(mAlerts.shown().size(), 1);
}

TEST_F(CVImportWindowTest, ClosingWhileItReadsStopsTheReading) {
    makeWindow();
    QByteArray statement = "Date,Description,Amount\n";
    for (int line = 0; line < 100'000; ++line)
        statement += "2014-03-01,Market,-10.00\n";
    mWindow->read({{}, statement});
    EXPECT_EQ(message(), "Reading the statement…");
    QTest::keyClick(mWindow.get(), Qt::Key_Escape);
    EXPECT_FALSE(mWindow->isVisible());
    EXPECT_EQ(model().rowCount(), 0);
}

TEST_F(CVImportWindowTest, HelpKeyboardAndNames) {
    readUsual();
    click("mHelpButton");
    QTest::keyClick(mWindow.get(), Qt::Key_F1);
    EXPECT_EQ(mHelp.mPages, (QStringList{"Import.html", "Import.html"}));
    QTest::keyClick(mWindow.get(), Qt::Key_F, Qt::ControlModifier);
    auto& search = find<QLineEdit>("mSearchField");
    EXPECT_TRUE(search.hasFocus());
    QTest::keyClicks(&search, "kiosk");
    EXPECT_EQ(model().rowCount(), 2);
    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_TRUE(mWindow->isVisible() && search.text().isEmpty());
    click("mColumnsButton");
    for (const QWidget* const widget : mWindow->findChildren<QWidget*>()) {
        const bool isInTabOrder = (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible();
        if (!isInTabOrder || widget->objectName().startsWith("qt_"))
            continue;
        auto* const named = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        EXPECT_FALSE(named->text(QAccessible::Name).isEmpty())
            << widget->objectName().toStdString() << ' ' << widget->metaObject()->className();
    }
    QTest::keyClick(mWindow.get(), Qt::Key_Escape);
    EXPECT_FALSE(mWindow->isVisible());
}

} // namespace
