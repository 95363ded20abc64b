#include "ShellFixture.h"
#include "app/CVConflictTeller.h"
#include "app/CVMergeOperations.h"
#include "merging/CVMergeWindow.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionFolder.h"
#include "widgets/tables/CVTableView.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

namespace {

/// Copies of synchronizers and the window with another file's changes, in the real program.
class ConflictCopiesInApp : public ShellFixture {
protected:
    [[nodiscard]] QString dataFile() const { return *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation); }
    /// A file beside the data file that holds the budget and one line more.
    QString writeCopy(const QString& middle, const QByteArray& payTo) const {
        QByteArray bytes = CVDocumentXMLRepresentation(document()).joined();
        const qsizetype begin = bytes.indexOf("<Transaction ");
        const qsizetype end = bytes.indexOf("</Transaction>") + qsizetype(sizeof("</Transaction>")) - 1;
        QByteArray line = bytes.sliced(begin, end - begin);
        bytes.insert(end, '\n' + line.replace("Market", payTo));
        QFile file(QFileInfo(dataFile()).path() + '/' + QFileInfo(dataFile()).completeBaseName() + middle +
                   ".corvella");
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }
    [[nodiscard]] QString remark() const {
        return mDelegate->mainWindow()->saveStatus().findChild<QLabel*>("mRemark")->text();
    }
    [[nodiscard]] bool waitForRemark(const QString& part) const {
        return QTest::qWaitFor([&] { return remark().contains(part); }, kPatience);
    }
    /// Waits until the program knows of that many copies.
    [[nodiscard]] bool waitForCopies(qsizetype count) const {
        return QTest::qWaitFor([&] { return mDelegate->conflictTeller().filesBeside().conflictCopies.size() == count; },
                               kPatience);
    }
    [[nodiscard]] QPushButton& showButton() const { return *window().findChild<QPushButton*>("mShowOtherFileButton"); }
    [[nodiscard]] CVMergeWindow& merging() const { return *mDelegate->mergeOperations().window(); }
    [[nodiscard]] CVTableView& lines() const { return *merging().findChild<CVTableView*>("mLineTable"); }
    void clickInMerging(const char* name) const {
        QTest::mouseClick(merging().findChild<QPushButton*>(name), Qt::LeftButton);
    }
    [[nodiscard]] bool waitForLines(int count) const {
        return QTest::qWaitFor(
            [this, count] {
                return lines().model()->rowCount() == count &&
                       merging().findChild<QPushButton*>("mBringInAllButton")->isEnabled() == (count > 0);
            },
            kPatience);
    }
};

TEST_F(ConflictCopiesInApp, ACopyIsToldOnceAndLeadsIntoThePanel) {
    startWithBudget();
    EXPECT_TRUE(showButton().isHidden());
    writeCopy(".sync-conflict-20140307-101530-ABCDEFG", "Baker");
    EXPECT_TRUE(waitForRemark("sync-conflict-20140307-101530-ABCDEFG"));
    ASSERT_TRUE(showButton().isVisible());
    QTest::mouseClick(&showButton(), Qt::LeftButton);
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(merging().windowHandle()->transientParent(), window().windowHandle());
    clickInMerging("mBringInAllButton");
    EXPECT_EQ(document().transactions().size(), 2U);
    EXPECT_EQ(window().findChild<CVTableView*>("mTransactionTable")->model()->rowCount(), 2);
    EXPECT_TRUE(waitForLines(0));
    saved();
    bool isKept = false;
    for (const CVVersion& version : CVVersionFolder(dataFile()).versions())
        isKept = isKept || version.name.reason == CVVersionReason::TakingOver;
    EXPECT_TRUE(isKept) << "the state before is a version";

    mDelegate->mainWindow()->saveStatus().remark("another remark");
    mDelegate->conflictTeller().tell();
    EXPECT_EQ(remark(), "another remark") << "each copy is told once";
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(ConflictCopiesInApp, ACopyIsToldAtTheStartAndNotAtTheNextOne) {
    startWithBudget();
    const QString copy = writeCopy(" (Anna's conflicted copy 2014-03-07)", "Baker");
    quit();
    start();
    EXPECT_TRUE(waitForRemark("Anna's conflicted copy"));
    quit();
    start();
    ASSERT_TRUE(waitForCopies(1));
    EXPECT_TRUE(remark().isEmpty());
    QFile changed(copy);
    ASSERT_TRUE(changed.open(QIODevice::Append) && changed.write("\n") == 1);
    changed.close();
    EXPECT_TRUE(waitForRemark("Anna's conflicted copy")) << "it was written anew";
}

TEST_F(ConflictCopiesInApp, ACopyThatAppearsWhileTheProgramRunsIsToldByItself) {
    startWithBudget();
    quit();
    start();
    writeCopy(" (conflicted copy 2014-03-07 101530)", "Baker");
    writeCopy(" (conflicted copy 2014-03-07 101531)", "Butcher");
    EXPECT_TRUE(waitForRemark("A synchronizer has left 2 copies"));
    QTest::mouseClick(&showButton(), Qt::LeftButton);
    EXPECT_EQ(merging().countSources(), 2U);
}

TEST_F(ConflictCopiesInApp, TheMenuLeadsToThemAgain) {
    startWithBudget();
    choose("Changes from Elsewhere…");
    EXPECT_TRUE(waitForRemark("there is no file with changes from elsewhere")) << remark().toStdString();
    EXPECT_EQ(mDelegate->mergeOperations().window(), nullptr);
    writeCopy(" (conflicted copy 2014-03-07)", "Baker");
    for (int time = 0; time < 2; ++time) {
        choose("Changes from Elsewhere…");
        ASSERT_TRUE(QTest::qWaitFor([this] { return mDelegate->mergeOperations().window() && merging().isVisible(); },
                                    kPatience));
        EXPECT_EQ(merging().countSources(), 1U);
        merging().reject();
    }
}

TEST_F(ConflictCopiesInApp, ACopyBesideTheFileThatALinkLeadsToIsToldByItself) {
    startWithBudget();
    quit();
    const QString share = mHome.path("share");
    ASSERT_TRUE(QDir().mkpath(share));
    const QString place = mHome.folders().applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella";
    ASSERT_TRUE(QFile::rename(place, share + "/Budget.corvella") && QFile::link(share + "/Budget.corvella", place));
    start();
    QFile copy(share + "/Budget (conflicted copy 2014-03-07).corvella");
    ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
    EXPECT_TRUE(waitForRemark("Budget (conflicted copy 2014-03-07)"));
}

TEST_F(ConflictCopiesInApp, WhatIsOfferedIsMergedWithItsCommonState) {
    startWithBudget();
    const CVDocumentText common = CVDocumentXMLRepresentation(document());
    const QString other = writeCopy(" (changed outside 2014-03-07 101530)", "Baker");
    record(13, "Kiosk", "Food");
    mDelegate->mergeOperations().offer({other, common});
    ASSERT_TRUE(waitForLines(1)) << "the kiosk is ours alone and stays";
    clickInMerging("mBringInAllButton");
    EXPECT_EQ(document().transactions().size(), 3U);
    EXPECT_TRUE(waitForLines(0));
}

} // namespace
