#include "EditorWindowsFixture.h"
#include "base/CVDefaultsKeys.h"
#include "model/CVTransactionColumns.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionFolder.h"
#include "workspace/controls/CVSaveStatus.h"
#include "workspace/transactions/CVTransactionTableView.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QScrollBar>

#include <gmock/gmock.h>

#include <cstdio>

namespace {

constexpr int kPatience = 20'000;

/// Another program that changes the data file while the window is open. Its three transactions are saved.
class OutsideChanges : public EditorWindowsFixture {
protected:
    void SetUp() override {
        EditorWindowsFixture::SetUp();
        save();
    }

    void save() const {
        document().workbookSave();
        EXPECT_TRUE(mDelegate->saves().waitForFinished().saved);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QString path() const {
        return mHome.folders().applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella";
    }
    [[nodiscard]] QByteArray bytes() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Replaces the file whole, as a synchronizing program does.
    void replace(const QByteArray& bytes) const {
        const QString fresh = path() + ".new";
        QFile file(fresh);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
        file.close();
        ASSERT_EQ(std::rename(QFile::encodeName(fresh).constData(), QFile::encodeName(path()).constData()), 0);
    }
    /// Changes a text of the file.
    void edit(const char* text, const char* other) const { replace(bytes().replace(text, other)); }

    [[nodiscard]] QStringList payees() const { return column("mTransactionTable", 2); }
    [[nodiscard]] bool waitForPayees(const QStringList& expected) const {
        return QTest::qWaitFor([&] { return payees() == expected; }, kPatience);
    }
    [[nodiscard]] QLabel& remark() const {
        return *mDelegate->mainWindow()->saveStatus().findChild<QLabel*>("mRemark");
    }
    [[nodiscard]] bool waitForRemark(const QString& part) const {
        return QTest::qWaitFor([&] { return remark().text().contains(part); }, kPatience);
    }
    [[nodiscard]] QStringList keptCopies() const {
        return QFileInfo(path()).dir().entryList({"Corvella Data (*).corvella"}, QDir::Files);
    }
};

TEST_F(OutsideChanges, AreShownAndLeaveWhatIsTypedAndSelected) {
    QTest::keyClicks(find<QWidget>("mForField"), "half a th");
    auto* const table = find<CVTransactionTableView>("mTransactionTable");
    table->selectRow(1);
    edit("Station", "Bus stop");
    ASSERT_TRUE(waitForPayees({"Market", "Baker", "Bus stop"}));
    EXPECT_TRUE(remark().text().contains("Another program has changed your data file"))
        << remark().text().toStdString();
    EXPECT_EQ(find<QLineEdit>("mForField")->text(), "half a th");
    ASSERT_EQ(table->selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(table->selectionModel()->selectedRows()[0].row(), 1);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    // What was shown until now can be brought back.
    EXPECT_TRUE(mDelegate->saves().waitForFinished().saved);
    ASSERT_FALSE(CVVersionFolder(path()).versions().isEmpty());
    EXPECT_EQ(CVVersionFolder(path()).versions()[0].name.reason, CVVersionReason::TakingOver);
}

TEST_F(OutsideChanges, AreNoneWhenTheSameBytesAreWrittenAgain) {
    replace(bytes());
    QTest::qWait(2500);
    EXPECT_TRUE(remark().isHidden());
    save();
    EXPECT_TRUE(keptCopies().isEmpty());
}

TEST_F(OutsideChanges, WaitWhileAnEditorIsOpen) {
    inCategoryEditor([this](QTableView&) {
        edit("Station", "Bus stop");
        QTest::qWait(2500);
        EXPECT_EQ(payees(), QStringList({"Market", "Baker", "Station"}));
    });
    EXPECT_TRUE(waitForPayees({"Market", "Baker", "Bus stop"}));
}

TEST_F(OutsideChanges, OnBothSidesKeepBothBudgets) {
    auto* const table = find<CVTransactionTableView>("mTransactionTable");
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, 2));
    table->edit(table->currentIndex());
    edit("Station", "Bus stop");
    QTest::qWait(2500);
    ASSERT_EQ(payees(), QStringList({"Market", "Baker", "Station"}));
    QTest::keyClicks(QApplication::focusWidget(), "Bazaar");
    press(Qt::Key_Return);
    EXPECT_TRUE(mDelegate->saves().waitForFinished().saved);
    EXPECT_TRUE(bytes().contains("Bazaar"));
    EXPECT_TRUE(bytes().contains("Station"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !keptCopies().isEmpty(); }, kPatience));
    QFile kept(QFileInfo(path()).dir().filePath(keptCopies()[0]));
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_TRUE(kept.readAll().contains("Bus stop"));
}

TEST_F(OutsideChanges, ThatCannotBeReadAreNotTakenUntilTheyCan) {
    const QByteArray whole = bytes();
    replace(whole.first(whole.size() / 2));
    ASSERT_TRUE(waitForRemark("cannot be read"));
    EXPECT_EQ(payees(), QStringList({"Market", "Baker", "Station"}));
    document().workbookSave();
    EXPECT_TRUE(mDelegate->saves().waitForFinished().awaitsReadable);
    EXPECT_EQ(bytes(), whole.first(whole.size() / 2));
    replace(whole);
    EXPECT_TRUE(QTest::qWaitFor([this] { return mDelegate->saves().waitForFinished().saved; }, kPatience));
}

TEST_F(OutsideChanges, ThatCannotBeReadAreKeptWhenTheProgramEnds) {
    replace("half");
    ASSERT_TRUE(waitForRemark("cannot be read"));
    record(day(2014, 3, 7), 8, "Mine", "Food");
    document().workbookSave();
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(bytes().contains("Mine"));
    EXPECT_EQ(keptCopies().size(), 1);
}

TEST_F(OutsideChanges, ThatDamageOrRemoveTheFileLoseNothingThatWasSavedWhenTheProgramEnds) {
    for (const bool isRemoved : {false, true}) {
        if (isRemoved)
            ASSERT_TRUE(QFile::remove(path()));
        else
            replace(bytes().first(bytes().size() / 2));
        ASSERT_TRUE(waitForRemark(isRemoved ? "is not there any more" : "cannot be read"));
        EXPECT_EQ(find<QLabel>("mSaveStatusText")->text(), "");
        quitAndStartAgain();
        EXPECT_EQ(payees(), QStringList({"Market", "Baker", "Station"}));
        EXPECT_FALSE(QApplication::activeModalWidget());
    }
    EXPECT_EQ(keptCopies().size(), 1);
}

TEST_F(OutsideChanges, DoNotUndoARenamedSetThatIsNotSavedYet) {
    inSetEditor([](QTableView& table) {
        clickButton(table, "Add");
        press(Qt::Key_Return);
    });
    save();
    document().transactionSets()[0]->setTransactionSetName("Renamed");
    edit("Station", "Bus stop");
    ASSERT_TRUE(QTest::qWaitFor([this] { return bytes().contains("Renamed"); }, kPatience));
    EXPECT_EQ(document().transactionSets()[0]->transactionSetName(), "Renamed");
    EXPECT_EQ(keptCopies().size(), 1);
}

TEST_F(OutsideChanges, LeaveAllSetsShownWhileThereAreSeveral) {
    inSetEditor([](QTableView& table) {
        clickButton(table, "Add");
        press(Qt::Key_Return);
    });
    save();
    auto* const picker = find<QComboBox>("mTransactionSet");
    picker->setFocus();
    press(Qt::Key_End);
    ASSERT_EQ(picker->currentText(), "All Sets");
    edit("Station", "Bus stop");
    ASSERT_TRUE(waitForPayees({"Market", "Baker", "Bus stop"}));
    EXPECT_EQ(picker->currentText(), "All Sets");
    EXPECT_EQ(column("mTransactionTable", CVTransactionColumns::Set)[0], "Initial Transaction Set");
    QByteArray oneSet = bytes();
    const qsizetype second = oneSet.lastIndexOf("<TransactionSet ");
    oneSet.remove(second, oneSet.indexOf("</TransactionSet>", second) + qstrlen("</TransactionSet>") - second);
    replace(oneSet.replace("Baker", "Butcher"));
    ASSERT_TRUE(waitForPayees({"Market", "Butcher", "Bus stop"}));
    EXPECT_FALSE(picker->isVisible());
    EXPECT_EQ(window().windowTitle(), "Corvella Main Window");
}

TEST_F(OutsideChanges, ThatRemoveTheFileAreToldAndTheBudgetStays) {
    ASSERT_TRUE(QFile::remove(path()));
    ASSERT_TRUE(waitForRemark("is not there any more"));
    EXPECT_EQ(payees(), QStringList({"Market", "Baker", "Station"}));
    save();
    EXPECT_TRUE(bytes().contains("Station"));
}

} // namespace
