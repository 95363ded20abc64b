#include "importing/budgets/CVImportFromBudget.h"
#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/FixedToday.h"
#include "kit/ScratchHome.h"
#include "merging/CVMergeHost.h"
#include "merging/CVMergeWindow.h"
#include "storage/CVDocumentXML.h"
#include "transfer/CVTransferCSV.h"
#include "widgets/tables/CVTableView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using ImportedColumn = CVVersionLines::Column;

/// Imports lines into the document as the program does.
class ImportingHost final : public CVMergeHost {
public:
    explicit ImportingHost(CVDocument& document) : mDocument(document) {}
    int bringIn(const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& lines) override {
        return CVImportFromBudget(mDocument, merged, ours, lines).lines;
    }

private:
    CVDocument& mDocument;
};

/// Both budgets have a market; the other one has a bookshop in the same set and a hotel in another one too.
class ImportWindowOfBudget : public testing::Test {
protected:
    ImportWindowOfBudget() {
        for (BudgetBuilder* const budget : {&mBudget, &mTheirs}) {
            budget->set("Checking", 1).currentSet(1).category("Food", 3).lastID(9);
            budget->transaction(
                {.date = day(2014, 3, 1), .amount = 10, .payTo = "Market", .category = "Food", .set = "Checking"});
        }
        mTheirs.set("Card", 4).category("Travel", 5);
        mTheirs.transaction(
            {.date = day(2014, 3, 4), .amount = 40, .payTo = "Bookshop", .category = "Food", .set = "Checking"});
        mTheirs.transaction(
            {.date = day(2014, 3, 2), .amount = 70, .payTo = "Hotel", .category = "Travel", .set = "Card"});
        mBudget.document().setSaver(&mSaver);
    }

    void offer(const QByteArray& bytes, const QString& name = "Other.corvella") {
        QFile file(mHome.path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        if (!mWindow)
            mWindow = std::make_unique<CVMergeWindow>(mBudget.document(), mHost, nullptr, CVMergePurpose::Import);
        mWindow->offer({file.fileName(), std::nullopt});
        mWindow->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    }
    void offer() { offer(CVDocumentXMLRepresentation(mTheirs.document()).joined()); }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        auto* const widget = mWindow->findChild<Widget*>(name);
        if (!widget)
            qFatal("the window has no %s", name);
        return *widget;
    }
    [[nodiscard]] CVTableView& table() const { return find<CVTableView>("mLineTable"); }
    void click(const char* name) const { QTest::mouseClick(&find<QPushButton>(name), Qt::LeftButton); }
    [[nodiscard]] QString text(const char* name) const { return find<QLabel>(name).text(); }
    [[nodiscard]] QString message() const { return table().accessibleDescription(); }
    [[nodiscard]] QStringList lines() const {
        QStringList lines;
        for (int row = 0; row < table().model()->rowCount(); ++row) {
            QStringList cells;
            for (const int column : {ImportedColumn::What, ImportedColumn::ToFrom, ImportedColumn::Amount,
                                     ImportedColumn::Category, ImportedColumn::Set})
                cells.append(table().model()->index(row, column).data().toString());
            lines.append(cells.join(u'|'));
        }
        return lines;
    }
    [[nodiscard]] bool waitForLines(int count) const {
        return QTest::qWaitFor(
            [this, count] {
                return table().model()->rowCount() == count && !message().startsWith("Reading") &&
                       find<QPushButton>("mBringInAllButton").isEnabled() == (count > 0);
            },
            30'000);
    }

    FixedToday mToday{day(2014, 3, 7)};
    ScratchHome mHome;
    CountingSaver mSaver;
    BudgetBuilder mBudget;
    BudgetBuilder mTheirs;
    ImportingHost mHost{mBudget.document()};
    std::unique_ptr<CVMergeWindow> mWindow;
};

TEST_F(ImportWindowOfBudget, SaysWhatTheFileIsAndShowsWhatOursHasNot) {
    mTheirs.categoryNamed("Food")->setExpenseTarget(5);
    offer();
    ASSERT_TRUE(waitForLines(4));
    EXPECT_EQ(lines(), (QStringList{"New set||||Card", "New category||$0.00|Travel|",
                                    "New|Bookshop|$40.00|Food|Checking", "New|Hotel|$70.00|Travel|Card"}));
    EXPECT_EQ(mWindow->windowTitle(), "Import: Other.corvella");
    EXPECT_EQ(text("mHeadline"), "A Corvella budget, 2 sets, 3 transactions, 1 March to 4 March");
    EXPECT_TRUE(text("mPlace").endsWith("Other.corvella"));
    EXPECT_EQ(text("mBothSides"), "Nothing of yours is removed or replaced.\n"
                                  "Not the same there, and yours stays: the plan of “Food” (there $5.00 Weekly).");
    for (const char* const box : {"mRemovedBox", "mAddedBox", "mChangedBox", "mBothSidesBox"})
        EXPECT_FALSE(find<QCheckBox>(box).isVisible()) << box;
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(ImportWindowOfBudget, AChosenLineComesInAndTheRestStaysToChooseFrom) {
    offer();
    ASSERT_TRUE(waitForLines(4));
    table().selectRow(3);
    click("mBringInButton");
    ASSERT_TRUE(waitForLines(1)) << "the set and the category came with the line";
    EXPECT_EQ(lines(), QStringList{"New|Bookshop|$40.00|Food|Checking"});
    EXPECT_EQ(text("mRemark"), "1 line brought in");
    EXPECT_EQ(mBudget.document().transactions().size(), 2U);
    EXPECT_EQ(text("mHeadline"), "A Corvella budget, 2 sets, 3 transactions, 1 March to 4 March");
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mBudget.document().takeAskedVersion(), CVVersionReason::Import);
}

TEST_F(ImportWindowOfBudget, ClosesOnceAllIsIn) {
    offer();
    ASSERT_TRUE(waitForLines(4));
    click("mBringInAllButton");
    EXPECT_FALSE(mWindow->isVisible());
    EXPECT_EQ(mBudget.document().transactions().size(), 3U);
    EXPECT_EQ(mSaver.count(), 1);
    EXPECT_EQ(mWindow->countSources(), 0U);
    offer();
    ASSERT_TRUE(waitForLines(0));
    EXPECT_EQ(message(), "Your budget already holds everything of that file.");
}

TEST_F(ImportWindowOfBudget, ADamagedFileGivesAClearLineAndNothingHappens) {
    offer(CVDocumentXMLRepresentation(mTheirs.document()).joined().chopped(40));
    ASSERT_TRUE(waitForLines(0));
    EXPECT_EQ(text("mHeadline"), "This file cannot be read.");
    EXPECT_TRUE(message().startsWith("The file is damaged at line ")) << message().toStdString();
    EXPECT_FALSE(find<QPushButton>("mBringInAllButton").isEnabled());
    EXPECT_EQ(mSaver.count(), 0);
}

TEST_F(ImportWindowOfBudget, ShowsExportedTransactionsToo) {
    mBudget.categoryNamed("Food")->setExpenseTarget(5);
    offer(*CVTransferCSV(mTheirs.document(), mTheirs.document().transactions()), "other.csv");
    ASSERT_TRUE(waitForLines(4));
    EXPECT_EQ(text("mHeadline"), "Transactions exported by Corvella, 2 sets, 3 transactions, 1 March to 4 March");
    EXPECT_EQ(text("mBothSides"), "Nothing of yours is removed or replaced.") << "they have no plans";
    offer("Date,Amount,Category,Paid To,For,Tax,Flagged,Set\r\n2014-03-01,1.x,,,,,,\r\n", "other.csv");
    ASSERT_TRUE(waitForLines(0));
    EXPECT_EQ(text("mHeadline"), "This file cannot be read.");
    EXPECT_EQ(message(), "Line 2 cannot be read: “1.x” is no amount.");
}

TEST_F(ImportWindowOfBudget, WhatWasReadOnlyInPartIsSaid) {
    offer(CVDocumentXMLRepresentation(mTheirs.document()).joined().replace("40.00", "4,00"));
    ASSERT_TRUE(waitForLines(4));
    EXPECT_TRUE(text("mBothSides").startsWith("1 place of that file was not understood, or only in part: "))
        << text("mBothSides").toStdString();
}

TEST_F(ImportWindowOfBudget, TheFileThatIsChosenNextTakesThePlaceOfTheOther) {
    offer();
    ASSERT_TRUE(waitForLines(4));
    mTheirs.transaction({.date = day(2014, 3, 6), .amount = 1, .category = "Food", .set = "Checking"});
    offer(CVDocumentXMLRepresentation(mTheirs.document()).joined(), "Second.corvella");
    ASSERT_TRUE(waitForLines(5));
    EXPECT_EQ(mWindow->countSources(), 1U);
    EXPECT_FALSE(find<QComboBox>("mSourceBox").isVisible());
    EXPECT_EQ(mWindow->windowTitle(), "Import: Second.corvella");
}

TEST_F(ImportWindowOfBudget, WhatIsTakenBackIsOfferedAgain) {
    offer();
    ASSERT_TRUE(waitForLines(4));
    table().selectRow(2);
    click("mBringInButton");
    ASSERT_TRUE(waitForLines(3));
    for (const auto& transaction : std::vector(mBudget.document().transactions()))
        if (transaction->payTo() == "Bookshop")
            mBudget.document().removeTransaction(transaction);
    ASSERT_TRUE(waitForLines(4));
}

} // namespace
