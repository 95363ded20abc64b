#include "ShellFixture.h"
#include "app/CVImportOperations.h"
#include "kit/BudgetBuilder.h"
#include "merging/CVMergeWindow.h"
#include "storage/CVDocumentXML.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <sys/stat.h>

namespace {

/// Other budgets that are imported in the real program.
class ImportBudgetInApp : public ShellFixture {
protected:
    ImportBudgetInApp() {
        mTheirs.set("Card", 4).currentSet(4).category("Moon Trips", 5).lastID(9);
        for (const int dayOfMarch : {1, 2})
            mTheirs.transaction({.date = day(2014, 3, dayOfMarch),
                                 .amount = 70,
                                 .payTo = "Hotel",
                                 .category = "Moon Trips",
                                 .set = "Card"});
    }

    /// The name says nothing of what is in it.
    [[nodiscard]] QString write(const QByteArray& bytes) const {
        QFile file(mHome.path("statement.csv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    [[nodiscard]] QByteArray theirs() { return CVDocumentXMLRepresentation(mTheirs.document()).joined(); }
    void importChosen(const QString& path) {
        mPanels.answer(path);
        choose("Import…");
    }
    [[nodiscard]] CVMergeWindow* importWindow() const { return mDelegate->importOperations().budgets().window(); }
    [[nodiscard]] QPushButton& bringInAll() const {
        return *importWindow()->findChild<QPushButton*>("mBringInAllButton");
    }
    void bringAllIn() const {
        ASSERT_TRUE(importWindow() && importWindow()->isVisible());
        ASSERT_TRUE(QTest::qWaitFor([this] { return bringInAll().isEnabled(); }, kPatience));
        QTest::mouseClick(&bringInAll(), Qt::LeftButton);
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
    [[nodiscard]] QStringList earlierVersions() const {
        return QDir(QFileInfo(document().placeForSaving()).path() + "/Earlier Versions").entryList(QDir::Files);
    }

    BudgetBuilder mTheirs;
};

TEST_F(ImportBudgetInApp, ComesInThroughItsWindowAndCanBeTakenBack) {
    startWithBudget();
    const auto versions = earlierVersions().size();
    importChosen(write(theirs()));
    bringAllIn();
    EXPECT_EQ(payees(), (QStringList{"Hotel", "Hotel", "Market"}));
    EXPECT_EQ(remark(), "2 transactions imported");
    EXPECT_FALSE(importWindow()->isVisible());
    ASSERT_TRUE(takeBackButton().isVisible());
    saved();
    EXPECT_EQ(earlierVersions().size(), versions + 1);
    EXPECT_FALSE(earlierVersions().filter("import").isEmpty()) << earlierVersions().join(' ').toStdString();
    QTest::mouseClick(&takeBackButton(), Qt::LeftButton);
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_EQ(remark(), "2 transactions taken back");
    EXPECT_EQ(document().doesCategoryNameExist("Moon Trips"), nullptr);
    EXPECT_EQ(document().countOfTransactionSets(), 0U);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    saved();
    EXPECT_FALSE(QFile::exists(document().placeForSaving() + ".import")) << "nothing was learnt";
}

TEST_F(ImportBudgetInApp, TheFileIsNeitherWrittenNorLocked) {
    startWithBudget();
    const QString path = write(theirs());
    ASSERT_EQ(::chmod(QFile::encodeName(path), 0400), 0);
    const auto before = QFileInfo(path).lastModified();
    const QStringList beside = QDir(mHome.path()).entryList(QDir::Files | QDir::Hidden);
    importChosen(path);
    bringAllIn();
    saved();
    EXPECT_EQ(QDir(mHome.path()).entryList(QDir::Files | QDir::Hidden), beside);
    EXPECT_EQ(QFileInfo(path).lastModified(), before);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), theirs());
}

TEST_F(ImportBudgetInApp, TheOwnDataFileGivesAClearLine) {
    startWithBudget();
    const QString link = mHome.path("link");
    ASSERT_TRUE(QFile::link(document().placeForSaving(), link));
    for (const QString& path : {document().placeForSaving(), link}) {
        importChosen(path);
        EXPECT_EQ(remark(), QString("“%1” is your data file, which you are looking at. There is nothing to import.")
                                .arg(QFileInfo(path).fileName()));
        EXPECT_EQ(importWindow(), nullptr);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
}

TEST_F(ImportBudgetInApp, MayBeChosenWhereAStatementCouldNotBeRead) {
    startWithBudget();
    const QString letter = mHome.path("letter");
    QFile file(letter);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Dear Sir,\n");
    file.close();
    mPanels.answer(letter);
    mPanels.answer(write(theirs()));
    QTimer timer;
    timer.callOnTimeout([&timer] {
        auto* const modal = QApplication::activeModalWidget();
        auto* const another = modal ? modal->findChild<QPushButton*>("mAnotherButton") : nullptr;
        if (!another || !another->isVisible())
            return;
        timer.stop();
        QTest::mouseClick(another, Qt::LeftButton);
    });
    timer.start(5);
    choose("Import…");
    bringAllIn();
    EXPECT_EQ(remark(), "2 transactions imported");
}

TEST_F(ImportBudgetInApp, SetsAndCategoriesAloneAreNoImport) {
    startWithBudget();
    mTheirs.document().removeTransactions(std::vector(mTheirs.document().transactions()));
    importChosen(write(theirs()));
    bringAllIn();
    EXPECT_NE(document().doesCategoryNameExist("Moon Trips"), nullptr);
    EXPECT_EQ(remark(), "");
    EXPECT_FALSE(takeBackButton().isVisible());
}

TEST_F(ImportBudgetInApp, AnotherBudgetThatIsOpenedClosesTheWindow) {
    startWithBudget();
    importChosen(write(theirs()));
    ASSERT_TRUE(importWindow()->isVisible());
    defaults().setString(CVDefaultsKeys::kDataFileLocation, mHome.path("Another.corvella"));
    QFile another(mHome.path("Another.corvella"));
    ASSERT_TRUE(another.open(QIODevice::WriteOnly));
    another.write(theirs());
    another.close();
    (void)mDelegate->reopenDocument();
    EXPECT_FALSE(importWindow()->isVisible());
    EXPECT_EQ(importWindow()->countSources(), 0U);
}

TEST_F(ImportBudgetInApp, TheSameBudgetReadAnewKeepsTheWindow) {
    startWithBudget();
    importChosen(write(theirs()));
    ASSERT_TRUE(importWindow()->isVisible());
    (void)mDelegate->reopenDocument();
    bringAllIn();
    EXPECT_EQ(payees(), (QStringList{"Hotel", "Hotel", "Market"}));
}

} // namespace
