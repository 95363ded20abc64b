#include "app/CVAppDelegate.h"

#include "app/CVFileMessages.h"
#include "kit/CancelledPanel.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "kit/ProgressDelay.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedPanels.h"
#include "kit/ScriptedPrintPanels.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "workspace/CVMainWindowController.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QSettings>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A user who starts the program, works in its window, quits and starts it again.
class CVAppDelegateTest : public testing::Test {
protected:
    std::unique_ptr<CVAppDelegate> start() {
        auto delegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), mAlerts, mPanels);
        EXPECT_TRUE(delegate->applicationDidFinishLaunching());
        QTest::qWait(0);
        return delegate;
    }

    static void quit(std::unique_ptr<CVAppDelegate>& delegate) {
        ASSERT_TRUE(delegate->mainWindow()->window()->close());
        delegate.reset();
    }

    template <typename Widget>
    static Widget* find(CVAppDelegate& delegate, const char* name) {
        auto* const widget = delegate.mainWindow()->window()->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    static void type(CVAppDelegate& delegate, const char* field, const QString& text) {
        auto* const widget = find<QWidget>(delegate, field);
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(widget, text);
    }

    static void record(CVAppDelegate& delegate, const QString& amount, const QString& payee, const QString& category) {
        type(delegate, "mExpenseAmountField", amount);
        type(delegate, "mExpenseToFromComboBox", payee);
        type(delegate, "mExpenseCategoryComboBox", category);
        QTest::keyClick(find<QWidget>(delegate, "mExpenseCategoryComboBox"), Qt::Key_Return);
    }

    [[nodiscard]] QString dataFile() const {
        return mHome.folders().applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella";
    }

    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void writeDataFile(const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(dataFile()).path());
        QFile file(dataFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    [[nodiscard]] QStringList keptCopies() const {
        return QDir(QFileInfo(dataFile()).path())
            .entryList({"*(unreadable *"}, QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    FixedToday mToday{QBDate::dateWithYear(2014, 3, 7)};
    ScratchHome mHome;
    ScriptedAlerts mAlerts;
    ScriptedPanels mPanels;
};

TEST_F(CVAppDelegateTest, WhatIsRecordedIsThereAfterTheNextStart) {
    auto delegate = start();
    record(*delegate, "45.10", "Dr. Lee & Sons", "Medical");
    quit(delegate);

    const QByteArray bytes = bytesOf(dataFile());
    EXPECT_TRUE(bytes.startsWith(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<CorvellaDocument os=\"Mac OS X\" app=\"com.quenbylabs.corvella\" app_version=\"" CORVELLA_VERSION
        "\">\n <MiscInfo id=\""))
        << bytes.left(300).toStdString();
    EXPECT_TRUE(bytes.contains(
        "flag=\"0\" tax_flag=\"0\" transaction_set_id=\"0\"><Data date=\"2014/03/07\" amount=\"45.10\" />"
        "<PayToFrom>Dr. Lee &amp; Sons</PayToFrom><For></For></Transaction>\n"))
        << bytes.left(600).toStdString();

    delegate = start();
    ASSERT_EQ(delegate->document().transactions().size(), 1U);
    const CVTransaction& transaction = *delegate->document().transactions().front();
    EXPECT_EQ(transaction.payTo(), "Dr. Lee & Sons");
    EXPECT_EQ(transaction.categoryName(), "Medical");
    EXPECT_EQ(transaction.amount(), 45.10);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    // Another save without a change writes the same bytes.
    delegate->document().workbookSave();
    quit(delegate);
    EXPECT_EQ(bytesOf(dataFile()), bytes);
}

TEST_F(CVAppDelegateTest, AFirstStartWritesNothingUntilSomethingIsRecorded) {
    auto delegate = start();
    EXPECT_GT(delegate->document().countOfCategories(), 20U);
    quit(delegate);
    EXPECT_FALSE(QFile::exists(dataFile()));
}

TEST_F(CVAppDelegateTest, NoOutputMayTakeThePlaceOfTheDataFileAndNotBeforeItsFirstSaveEither) {
    ScriptedPrintPanels printPanels;
    auto delegate = start();
    delegate->setPrintPanels(&printPanels);
    EXPECT_EQ(printPanels.spared(), QStringList{dataFile()});
    EXPECT_EQ(delegate->document().dataFiles(), QStringList{dataFile()});
    record(*delegate, "5", "Dr. Lee", "Medical");
    EXPECT_EQ(printPanels.spared(), QStringList{dataFile()});
    quit(delegate);
}

TEST_F(CVAppDelegateTest, SaysThatAllIsSavedOnlyWhenThereIsAFile) {
    const auto status = [](CVAppDelegate& delegate) { return find<QLabel>(delegate, "mSaveStatusText")->text(); };
    auto delegate = start();
    EXPECT_EQ(status(*delegate), "");
    record(*delegate, "1", "Somebody", "Other");
    EXPECT_TRUE(QTest::qWaitFor([&] { return status(*delegate) == "All changes saved"; }));
    quit(delegate);
    delegate = start();
    EXPECT_EQ(status(*delegate), "All changes saved");
    quit(delegate);
    writeDataFile("<EncryptedData>" + QByteArray(200, 'x'));
    delegate = start();
    EXPECT_EQ(status(*delegate), "") << "what is shown is in no file";
    quit(delegate);
}

TEST_F(CVAppDelegateTest, WhatBecameOfAFileThatCannotBeReadNamesItsFolderOnce) {
    writeDataFile("<?xml version=\"1.0\"?>\n<CorvellaDocument><Transaction></CorvellaDocument>");
    const QString folder = QFileInfo(dataFile()).path();
    auto delegate = start();
    quit(delegate);
    ASSERT_EQ(mAlerts.shown().size(), 1);
    const QString told = mAlerts.shown().constFirst().message;
    EXPECT_EQ(told.count(folder), 1) << told.toStdString();
    EXPECT_TRUE(told.contains("Corvella Data.corvella")) << told.toStdString();

    CVSaveOutcome failed;
    failed.saved = false;
    failed.path = dataFile();
    failed.message = "The budget could not be saved to \"" + dataFile() +
                     "\": the unreadable file there could not be kept beside it.";
    const CVLoadReport report{CVLoadReport::Outcome::Unreadable, dataFile(), "Permission denied"};
    EXPECT_EQ(CVFileMessages::unreadable(report, failed).message.count(folder), 1)
        << CVFileMessages::unreadable(report, failed).message.toStdString();
}

TEST_F(CVAppDelegateTest, ADamagedFileIsKeptAndTheUserIsToldWhere) {
    const QByteArray damaged =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CorvellaDocument><Transaction></CorvellaDocument>";
    writeDataFile(damaged);
    auto delegate = start();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.owners(), QStringList{"Corvella Main Window"});
    ASSERT_EQ(keptCopies().size(), 1);
    const QString copy = QFileInfo(dataFile()).path() + '/' + keptCopies().constFirst();
    EXPECT_EQ(bytesOf(copy), damaged);
    const QString message = mAlerts.shown().constFirst().message;
    EXPECT_TRUE(message.contains(keptCopies().constFirst())) << message.toStdString();
    EXPECT_TRUE(message.contains("line 2")) << message.toStdString();
    QTest::qWait(0);
    EXPECT_EQ(mAlerts.shown().size(), 1) << "told twice";
    quit(delegate);
    EXPECT_TRUE(bytesOf(dataFile()).contains("<Category "));
}

TEST_F(CVAppDelegateTest, AnEncryptedFileStaysUntouchedUntilTheFirstSaveAndIsKeptThen) {
    const QByteArray encrypted = "<EncryptedData>" + QByteArray(200, 'x');
    writeDataFile(encrypted);
    auto delegate = start();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_TRUE(mAlerts.shown().constFirst().message.contains("untouched"));
    EXPECT_EQ(bytesOf(dataFile()), encrypted);

    record(*delegate, "1", "Somebody", "Other");
    ASSERT_TRUE(QTest::qWaitFor([this] { return mAlerts.shown().size() == 2; }));
    ASSERT_EQ(keptCopies().size(), 1);
    EXPECT_TRUE(mAlerts.shown().constLast().message.contains(keptCopies().constFirst()));
    EXPECT_EQ(bytesOf(QFileInfo(dataFile()).path() + '/' + keptCopies().constFirst()), encrypted);
    quit(delegate);
}

TEST_F(CVAppDelegateTest, ADiskThatKeepsNoAccessRightsIsTold) {
    auto delegate = start();
    CVSaveTeller teller(mAlerts);
    CVSaveOutcome outcome;
    teller.tell(outcome, *delegate->mainWindow(), false);
    auto* const remark = find<QLabel>(*delegate, "mRemark");
    EXPECT_EQ(remark->text(), "");
    outcome.isOpenToOthers = true;
    teller.tell(outcome, *delegate->mainWindow(), false);
    EXPECT_TRUE(remark->isVisible());
    EXPECT_TRUE(remark->text().startsWith("Others who can use this disk")) << remark->text().toStdString();
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    quit(delegate);
}

TEST_F(CVAppDelegateTest, WhatWasNotUnderstoodIsToldAtTheStart) {
    QByteArray file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CorvellaDocument><MiscInfo id=\"1\"/>\n";
    for (int i = 1; i <= 7; ++i)
        file += "<Transaction><Data date=\"2014/03/07\" amount=\"" + QByteArray::number(i) + ",50\"/></Transaction>\n";
    writeDataFile(file + "</CorvellaDocument>\n");
    auto delegate = start();
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.owners(), QStringList{"Corvella Main Window"});
    EXPECT_EQ(mAlerts.shown().constFirst().title, "Your data file was read only in part");
    const QString message = mAlerts.shown().constFirst().message;
    EXPECT_TRUE(message.startsWith("7 places in “Corvella Data.corvella” were not understood, or only in part:\n\n"
                                   "Line 3: amount=\"1,50\" was not understood as a whole.\n"))
        << message.toStdString();
    EXPECT_TRUE(message.contains("\n… and 2 more\n")) << message.toStdString();
    EXPECT_TRUE(message.contains(QFileInfo(dataFile()).path())) << message.toStdString();
    EXPECT_EQ(find<QLabel>(*delegate, "mSaveStatusText")->text(), "All changes saved");
    quit(delegate);
    EXPECT_EQ(bytesOf(dataFile()), file + "</CorvellaDocument>\n") << "nothing was written";
}

TEST_F(CVAppDelegateTest, AFileThatWasReadInPartIsKeptAtTheFirstSaveWithoutAnotherAlert) {
    const QByteArray file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CorvellaDocument><MiscInfo id=\"1\"/>\n"
                            "<!-- mine --><Category id=\"1\">Food</Category></CorvellaDocument>\n";
    writeDataFile(file);
    auto delegate = start();
    EXPECT_EQ(mAlerts.shown().size(), 1);
    record(*delegate, "1", "Somebody", "Food");
    const auto* const remark = find<QLabel>(*delegate, "mRemark");
    ASSERT_TRUE(QTest::qWaitFor([&] { return remark->text().startsWith("Your file is kept as it was read in “"); }))
        << remark->text().toStdString();
    EXPECT_EQ(mAlerts.shown().size(), 1);
    const QString name = remark->text().section(u'“', 1).section(u'”', 0, 0);
    EXPECT_TRUE(name.startsWith("Corvella Data (as it was read ")) << name.toStdString();
    EXPECT_EQ(bytesOf(QFileInfo(dataFile()).path() + '/' + name), file);
    quit(delegate);
}

TEST_F(CVAppDelegateTest, AFailedSaveIsShownAndTheNextOneTriesAgain) {
    auto delegate = start();
    // A file with the name of the data file's folder makes it impossible to make that folder.
    QDir().mkpath(mHome.folders().applicationSupport);
    QFile obstacle(mHome.folders().applicationSupport + "/Quenby Labs");
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    record(*delegate, "1", "Somebody", "Other");
    auto* const tryAgain = find<QPushButton>(*delegate, "mTryAgainButton");
    ASSERT_TRUE(QTest::qWaitFor([&] { return tryAgain->isVisible(); }));

    mAlerts.answer({CVAlert::kAlternate});
    EXPECT_FALSE(delegate->mainWindow()->window()->close()) << "closed although the change is not saved";
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(mAlerts.shown().constFirst().defaultButton, "Try Again");

    ASSERT_TRUE(obstacle.remove());
    tryAgain->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !tryAgain->isVisible(); }));
    quit(delegate);
    EXPECT_TRUE(bytesOf(dataFile()).contains("Somebody"));
}

TEST_F(CVAppDelegateTest, NothingOpensWhenTheReadingIsCancelled) {
    auto delegate = start();
    for (int i = 0; i < 5'000; ++i)
        delegate->document().insertTransaction(std::make_shared<CVTransaction>());
    delegate->document().workbookSave();
    quit(delegate);
    const QByteArray before = bytesOf(dataFile());

    delegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), mAlerts, mPanels);
    const ProgressDelay delay = ProgressDelay::none();
    const CancelledPanel cancelled;
    EXPECT_FALSE(delegate->applicationDidFinishLaunching());
    EXPECT_EQ(delegate->mainWindow(), nullptr);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    delegate.reset();
    EXPECT_EQ(bytesOf(dataFile()), before);
}

TEST_F(CVAppDelegateTest, TheUserMayQuitWithoutSaving) {
    auto delegate = start();
    delegate->document().userDefaults().setString("Data File Location", mHome.path("no such folder/file"));
    record(*delegate, "1", "Somebody", "Other");
    mAlerts.answer({CVAlert::kDefault, CVAlert::kOther});
    EXPECT_TRUE(delegate->mainWindow()->window()->close());
    EXPECT_EQ(mAlerts.shown().size(), 2) << "Try Again, which fails as well, then Quit Without Saving";
    EXPECT_FALSE(mAlerts.shown().constFirst().message.contains("tried again"));
    EXPECT_TRUE(mAlerts.shown().constLast().message.startsWith("Corvella tried again at "))
        << mAlerts.shown().constLast().message.toStdString();
}

} // namespace
