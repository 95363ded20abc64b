#include "merging/CVMergeWindow.h"

#include "differences/CVBringIn.h"
#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/FixedToday.h"
#include "kit/ScratchHome.h"
#include "merging/CVMergeHost.h"
#include "storage/CVDocumentXML.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/tables/CVTableView.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using MergeColumn = CVVersionLines::Column;

/// Brings lines into the document as the program does.
class BringingHost final : public CVMergeHost {
public:
    explicit BringingHost(CVDocument& document) : mDocument(document) {}
    int bringIn(const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& lines) override {
        return CVBringIn(mDocument, merged, ours, lines);
    }

private:
    CVDocument& mDocument;
};

class NotingHelp final : public CVHelpOpener {
public:
    void showHelpPage(const QString& page, QWidget& /*asker*/) override { mPages.append(page); }
    QStringList mPages;
};

/// The budget has one market, one baker and, new, one kiosk; in the other file the market costs more, the baker is gone
/// and a bookshop is new.
class CVMergeWindowTest : public testing::Test {
protected:
    CVMergeWindowTest() {
        for (BudgetBuilder* const budget : {&mCommon, &mBudget, &mTheirs}) {
            budget->category("Food", 1).lastID(1);
            purchase(*budget, 1, budget == &mTheirs ? 11 : 10, "Market");
            if (budget != &mTheirs)
                purchase(*budget, 2, 20, "Baker");
        }
        purchase(mBudget, 3, 30, "Kiosk");
        purchase(mTheirs, 4, 40, "Bookshop");
        mSaver.setDataFiles({mHome.path("Corvella Data.corvella")});
        mBudget.document().setSaver(&mSaver);
    }

    static void purchase(BudgetBuilder& budget, int dayOfMarch, double amount, const QString& payTo) {
        budget.transaction({.date = day(2014, 3, dayOfMarch), .amount = amount, .payTo = payTo, .categoryID = 1});
    }

    /// Their file, under that name.
    QString write(const QString& name) {
        QFile file(mHome.path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(CVDocumentXMLRepresentation(mTheirs.document()).joined());
        return file.fileName();
    }
    [[nodiscard]] CVDocumentText common() { return CVDocumentXMLRepresentation(mCommon.document()); }

    void offer(const CVMergeSource& source) {
        if (!mWindow) {
            mWindow = std::make_unique<CVMergeWindow>(mBudget.document(), mHost, &mHelp);
            mTester = std::make_unique<QAbstractItemModelTester>(table().model(),
                                                                 QAbstractItemModelTester::FailureReportingMode::Fatal);
        }
        mWindow->offer(source);
        mWindow->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        auto* const widget = mWindow->findChild<Widget*>(name);
        if (!widget)
            qFatal("the window has no %s", name);
        return *widget;
    }
    [[nodiscard]] CVTableView& table() const { return find<CVTableView>("mLineTable"); }
    [[nodiscard]] QPushButton& button(const char* name) const { return find<QPushButton>(name); }
    void click(const char* name) const { QTest::mouseClick(&button(name), Qt::LeftButton); }
    [[nodiscard]] QString text(const char* name) const { return find<QLabel>(name).text(); }
    [[nodiscard]] QString message() const { return table().accessibleDescription(); }
    [[nodiscard]] QString cell(int row, int column) const {
        return table().model()->index(row, column).data().toString();
    }
    [[nodiscard]] QStringList lines() const {
        QStringList lines;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            lines.append(cell(row, MergeColumn::What) + ' ' + cell(row, MergeColumn::ToFrom) + ' ' +
                         cell(row, MergeColumn::Amount));
        return lines;
    }
    [[nodiscard]] bool waitForLines(int count) const {
        return QTest::qWaitFor(
            [this, count] {
                return table().model()->rowCount() == count && !message().startsWith("Reading") &&
                       button("mBringInAllButton").isEnabled() == (count > 0);
            },
            30'000);
    }
    [[nodiscard]] QStringList payees() {
        QStringList payees;
        for (const auto& transaction : mBudget.document().transactions())
            payees.append(transaction->payTo() + ' ' + QString::number(transaction->amount()));
        payees.sort();
        return payees;
    }

    FixedToday mToday{day(2014, 3, 7)};
    ScratchHome mHome;
    CountingSaver mSaver;
    BudgetBuilder mCommon;
    BudgetBuilder mBudget;
    BudgetBuilder mTheirs;
    BringingHost mHost{mBudget.document()};
    NotingHelp mHelp;
    std::unique_ptr<CVMergeWindow> mWindow;
    std::unique_ptr<QAbstractItemModelTester> mTester;
};

TEST_F(CVMergeWindowTest, ShowsWhatHappenedWhereTheOtherFileIsAndWhatBringingInWouldDo) {
    const QString path = write("Corvella Data (changed outside 2014-03-07 101530).corvella");
    offer({path, common()});
    ASSERT_TRUE(waitForLines(3));
    EXPECT_EQ(lines(), (QStringList{"Added there Bookshop $40.00", "Removed there Baker $20.00",
                                    "Changed there Market $10.00 → $11.00"}));
    EXPECT_TRUE(text("mHeadline").startsWith("Another program has changed your data file"));
    EXPECT_TRUE(text("mPlace").contains(path));
    EXPECT_FALSE(find<QLabel>("mBothSides").isVisible());
    EXPECT_FALSE(find<QComboBox>("mSourceBox").isVisible());
    EXPECT_FALSE(mWindow->isModal());
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(CVMergeWindowTest, ChosenLinesComeInAndTheRestIsComparedAnew) {
    offer({write("Other.corvella"), common()});
    ASSERT_TRUE(waitForLines(3));
    table().selectRow(1);
    EXPECT_EQ(button("mBringInButton").text(), "Bring &In 1 Line");
    click("mBringInButton");
    EXPECT_EQ(payees(), (QStringList{"Kiosk 30", "Market 10"}));
    EXPECT_EQ(text("mRemark"), "1 line brought in");
    ASSERT_TRUE(waitForLines(2));
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mBudget.document().takeAskedVersion(), CVVersionReason::TakingOver);
}

TEST_F(CVMergeWindowTest, AfterAllCameInItSaysSoAndTheFileIsNotOfferedAgain) {
    offer({write("Other.corvella"), common()});
    ASSERT_TRUE(waitForLines(3));
    EXPECT_EQ(button("mBringInAllButton").text(), "Bring In A&ll 3 Lines");
    click("mBringInAllButton");
    EXPECT_FALSE(button("mBringInAllButton").isEnabled()) << "until it was compared anew";
    EXPECT_EQ(payees(), (QStringList{"Bookshop 40", "Kiosk 30", "Market 11"}));
    ASSERT_TRUE(waitForLines(0));
    EXPECT_EQ(message(), "Everything of that file is in your budget now.");
    EXPECT_EQ(text("mRemark"), "3 lines brought in");
    mWindow->reject();
    EXPECT_EQ(mWindow->countSources(), 0U);
}

TEST_F(CVMergeWindowTest, ALineThatBothChangedIsMarkedAndNamedAndStaysTwice) {
    mBudget.transactionAt(0)->setAmount(12);
    offer({write("Other.corvella"), common()});
    ASSERT_TRUE(waitForLines(3));
    EXPECT_TRUE(lines().contains("Changed on both sides Market $12.00 → $11.00")) << lines().join("\n").toStdString();
    EXPECT_EQ(text("mBothSides"), "Changed on both sides, so bringing in leaves both lines: 3/1/14 Market (here "
                                  "“$12.00”, there “$11.00”).");
    auto& box = find<QCheckBox>("mBothSidesBox");
    EXPECT_EQ(box.text(), "On &both sides (1)");
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(find<QCheckBox>("mAddedBox").text(), "&Added (1)");
    box.click();
    EXPECT_EQ(table().model()->rowCount(), 2);
    box.click();
    click("mBringInAllButton");
    EXPECT_TRUE(payees().contains("Market 11") && payees().contains("Market 12"));
    EXPECT_TRUE(waitForLines(0));
    EXPECT_FALSE(box.isVisible()) << "there is no such line any more";
}

TEST_F(CVMergeWindowTest, TheColumnsShowTheirContentsWhereThereIsRoomAndFitTheWindowWhereThereIsNot) {
    mTheirs.transactionAt(0)->setAmount(10);
    mTheirs.transactionAt(0)->setFor("Vegetables, bread and cheese for the week");
    mTheirs.transactionAt(1)->setPayTo("The Bookshop beside the Covered Market of the Old Town");
    offer({write("Other.corvella"), common()});
    ASSERT_TRUE(waitForLines(3));
    const QAbstractItemView& view = table();
    const auto totalWidth = [this] { return table().horizontalHeader()->length(); };
    mWindow->resize(1600, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(totalWidth(), table().viewport()->width());
    for (int column = 0; column < table().model()->columnCount(); ++column)
        EXPECT_GE(table().columnWidth(column), view.sizeHintForColumn(column)) << column;
    mWindow->resize(800, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(totalWidth(), table().viewport()->width()) << "there is nothing to scroll";
    for (const int column : {MergeColumn::What, MergeColumn::Date, MergeColumn::Amount})
        EXPECT_GE(table().columnWidth(column), view.sizeHintForColumn(column)) << column;
    // Widths that the user gives stay.
    table().setColumnWidth(MergeColumn::ToFrom, 222);
    mWindow->resize(900, 600);
    QCoreApplication::processEvents();
    EXPECT_EQ(table().columnWidth(MergeColumn::ToFrom), 222);
}

TEST_F(CVMergeWindowTest, ACopyOfASynchronizerRemovesNothingBecauseTheCommonStateIsUnknown) {
    mTheirs.categoryNamed("Food")->setExpenseTarget(5);
    offer({write("Corvella Data (Anna's conflicted copy 2014-03-07).corvella"), std::nullopt});
    ASSERT_TRUE(waitForLines(2));
    EXPECT_EQ(lines(), (QStringList{"Added there Bookshop $40.00", "Added there Market $11.00"}));
    EXPECT_TRUE(text("mHeadline").startsWith("A synchronizer has left a copy of your data file"));
    EXPECT_TRUE(text("mBothSides").contains("nothing of yours is removed"));
    EXPECT_TRUE(text("mBothSides").contains("the plan of “Food” (there $5.00 Weekly)"));
}

TEST_F(CVMergeWindowTest, FollowsTheBudget) {
    offer({write("Other.corvella"), common()});
    ASSERT_TRUE(waitForLines(3));
    mBudget.document().removeTransaction(std::shared_ptr(mBudget.document().transactions()[1]));
    EXPECT_TRUE(waitForLines(2)) << "we have removed the baker too";
}

TEST_F(CVMergeWindowTest, SeveralFilesWaitAndCanBeChosen) {
    offer({write("First.corvella"), common()});
    ASSERT_TRUE(waitForLines(3));
    purchase(mTheirs, 5, 50, "Florist");
    offer({write("Second.corvella"), common()});
    auto& box = find<QComboBox>("mSourceBox");
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(box.currentText(), "First.corvella") << "the one that the user is looking at stays";
    EXPECT_EQ(text("mRemark"), "There is another file with changes: “Second.corvella”");
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Down);
    ASSERT_TRUE(waitForLines(4));
    EXPECT_TRUE(text("mPlace").contains("Second.corvella"));
    offer({mHome.path("Second.corvella"), common()});
    EXPECT_EQ(box.count(), 2) << "the same file takes the place of the former";
}

TEST_F(CVMergeWindowTest, SaysWhyTheFileCannotBeRead) {
    offer({mHome.path("gone.corvella"), std::nullopt});
    ASSERT_TRUE(QTest::qWaitFor([this] { return message().startsWith("This file cannot be read: "); }, 30'000));
    EXPECT_FALSE(button("mBringInAllButton").isEnabled());
    EXPECT_FALSE(button("mBringInButton").isEnabled());
}

TEST_F(CVMergeWindowTest, HelpKeyboardAndNames) {
    offer({write("Other.corvella"), common()});
    ASSERT_TRUE(waitForLines(3));
    EXPECT_TRUE(table().hasFocus());
    click("mHelpButton");
    QTest::keyClick(mWindow.get(), Qt::Key_F1);
    EXPECT_EQ(mHelp.mPages, (QStringList{"TwoHands.html", "TwoHands.html"}));
    QTest::keyClick(mWindow.get(), Qt::Key_F, Qt::ControlModifier);
    auto& search = find<QLineEdit>("mSearchField");
    EXPECT_TRUE(search.hasFocus());
    QTest::keyClicks(&search, "baker");
    EXPECT_EQ(table().model()->rowCount(), 1);
    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_TRUE(mWindow->isVisible() && search.text().isEmpty());
    for (const QWidget* const widget : mWindow->findChildren<QWidget*>()) {
        const bool isInTabOrder = (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible();
        if (!isInTabOrder || widget->objectName().startsWith("qt_"))
            continue;
        auto* const named = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        EXPECT_FALSE(named->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
    }
    QTest::keyClick(mWindow.get(), Qt::Key_Escape);
    EXPECT_FALSE(mWindow->isVisible());
}

} // namespace
