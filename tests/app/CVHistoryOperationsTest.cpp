#include "app/CVHistoryOperations.h"

#include "ShellFixture.h"
#include "differences/CVBudgetDifferences.h"
#include "kit/CancelledPanel.h"
#include "kit/NotificationCounter.h"
#include "kit/ProgressDelay.h"
#include "model/CVTransactionSet.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVVersionFolder.h"
#include "versions/CVVersionLimit.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTableView>

namespace {

class CVHistoryOperationsTest : public ShellFixture {
protected:
    /// A budget with a transaction of the market, which is the version, and then one of the baker.
    void startWithVersion() {
        start();
        record(12, "Market", "Food");
        saved();
        document().askForVersion(CVVersionReason::Removal);
        record(13, "Baker", "Food");
        saved();
        ASSERT_EQ(versions().size(), 1);
        mVersion = versions()[0].path;
    }

    void saved() const { EXPECT_TRUE(mDelegate->saves().waitForFinished().saved); }
    [[nodiscard]] QString dataFile() const { return *defaults().stringForKey(CVDefaultsKeys::kDataFileLocation); }
    [[nodiscard]] QList<CVVersion> versions() const { return CVVersionFolder(dataFile()).versions(); }
    [[nodiscard]] CVHistoryOperations& operations() const { return mDelegate->historyOperations(); }
    [[nodiscard]] QString remark() const { return window().findChild<QLabel*>("mRemark")->text(); }

    static void writeFile(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QStringList payees() const {
        const QAbstractItemModel& model = *window().findChild<QTableView*>("mTransactionTable")->model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, 2).data().toString());
        texts.sort();
        return texts;
    }

    /// The version that was kept for that reason; several of one second have no order.
    [[nodiscard]] QString keptFor(CVVersionReason reason) const {
        for (const CVVersion& version : versions()) {
            if (version.name.reason == reason)
                return version.path;
        }
        return {};
    }
    [[nodiscard]] QByteArray bytesKept(CVVersionReason reason) const { return bytesOf(keptFor(reason)); }

    void expectUnchanged() {
        EXPECT_EQ(payees(), (QStringList{"Baker", "Market"}));
        EXPECT_EQ(versions().size(), 1);
        record(14, "Kiosk", "Food");
        quit();
        EXPECT_TRUE(bytesOf(mHome.userDefaults().stringForKey(CVDefaultsKeys::kDataFileLocation).value_or(mDataFile))
                        .contains("Kiosk"));
    }

    QString mVersion;
    QString mDataFile;
};

TEST_F(CVHistoryOperationsTest, BringingBackShowsTheLinesInTheMainWindow) {
    start();
    record(12, "Market", "Food");
    CVDocument version(document().notificationCenter(), document().userDefaults());
    for (const auto& category : document().categories())
        version.appendCategory(std::make_shared<CVCategory>(*category));
    const auto gone = std::make_shared<CVTransaction>(*document().transactions()[0]);
    gone->setPayTo("Baker");
    gone->setAmount(3);
    version.addTransaction(gone);
    const auto lines = CVBudgetDifferences::between(version, document(), &version);
    EXPECT_EQ(operations().bringBack(version, lines), 1);
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market"}));
    quit();
}

TEST_F(CVHistoryOperationsTest, ReturningShowsAndSavesTheVersionAndKeepsThePresentBudget) {
    startWithVersion();
    const QByteArray present = bytesOf(dataFile());
    const QString place = dataFile();
    window().resize(700, 555);
    ASSERT_TRUE(operations().returnTo(mVersion, window()));
    EXPECT_EQ(payees(), QStringList{"Market"});
    EXPECT_EQ(window().size(), QSize(700, 555)) << "the window is where it was";
    saved();
    EXPECT_EQ(dataFile(), place);
    EXPECT_FALSE(bytesOf(place).contains("Baker"));
    ASSERT_EQ(versions().size(), 2);
    EXPECT_EQ(bytesKept(CVVersionReason::Return), present);
    EXPECT_TRUE(QFile::exists(mVersion));
    record(14, "Kiosk", "Food");
    quit();
    EXPECT_TRUE(bytesOf(place).contains("Kiosk")) << "what is shown is what is saved";
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVHistoryOperationsTest, ReturningAndReturningAgainGivesTheSameBytes) {
    startWithVersion();
    const QByteArray present = bytesOf(dataFile());
    ASSERT_TRUE(operations().returnTo(mVersion, window()));
    saved();
    ASSERT_TRUE(operations().returnTo(keptFor(CVVersionReason::Return), window()));
    saved();
    EXPECT_EQ(bytesOf(dataFile()), present);
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market"}));
    quit();
}

TEST_F(CVHistoryOperationsTest, ReturningKeepsThePresentBudgetEvenWhenNoVersionsAreWanted) {
    startWithVersion();
    CVSetVersionLimit(defaults(), 0);
    ASSERT_TRUE(operations().returnTo(mVersion, window()));
    saved();
    ASSERT_EQ(versions().size(), 2);
    EXPECT_TRUE(bytesKept(CVVersionReason::Return).contains("Baker"));
    quit();
}

TEST_F(CVHistoryOperationsTest, WhatCannotBeKeptIsNotReplaced) {
    startWithVersion();
    CVSetVersionLimit(defaults(), 0);
    const QString version = mHome.path("version.corvella");
    ASSERT_TRUE(QFile::copy(mVersion, version));
    const QString folder = CVVersionFolder(dataFile()).path();
    ASSERT_TRUE(QDir(folder).removeRecursively() && QFile::link("/dev/null", folder));
    EXPECT_FALSE(operations().returnTo(version, window()));
    EXPECT_EQ(titles(), QStringList{"Your present budget could not be kept"});
    EXPECT_EQ(payees(), (QStringList{"Baker", "Market"}));
    quit();
}

TEST_F(CVHistoryOperationsTest, CancellingTheReadingKeepsTheBudget) {
    startWithVersion();
    mDataFile = dataFile();
    {
        const ProgressDelay delay = ProgressDelay::none();
        const CancelledPanel cancelled;
        EXPECT_FALSE(operations().returnTo(mVersion, window()));
    }
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    expectUnchanged();
}

TEST_F(CVHistoryOperationsTest, AVersionThatCannotBeReadLeavesEverythingAndIsTold) {
    startWithVersion();
    mDataFile = dataFile();
    const QString broken = mHome.path("broken.corvella");
    const QString other = mHome.path("other.corvella");
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<?xml version=\"1.0\"?>\n<CorvellaDocument><Transaction></CorvellaDocument>");
    file.close();
    ASSERT_TRUE(QFile::link("/proc/self/mem", other));
    for (const QString& path : {broken, other, mHome.path("none.corvella")}) {
        EXPECT_FALSE(operations().returnTo(path, window()));
        EXPECT_EQ(mAlerts.shown().constLast().title, "The earlier version could not be read");
        EXPECT_TRUE(mAlerts.shown().constLast().message.contains(path));
    }
    EXPECT_EQ(mAlerts.shown().size(), 3);
    expectUnchanged();
}

TEST_F(CVHistoryOperationsTest, AVersionThatCannotBeReadTouchesNoSettingAndAnnouncesNothing) {
    startWithVersion();
    defaults().setInteger(CVDefaultsKeys::kNumberOfItems, 25);
    const QString broken = mHome.path("broken.corvella");
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<?xml version=\"1.0\"?>\n<CorvellaDocument><Category><CategoryName>Toys</CategoryName></Category>"
               "<Transaction></CorvellaDocument>");
    file.close();
    const NotificationCounter announced(document().notificationCenter());
    EXPECT_FALSE(operations().returnTo(broken, window()));
    EXPECT_EQ(mAlerts.shown().size(), 1);
    EXPECT_EQ(announced.total(), 0);
    EXPECT_EQ(defaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 25);
    quit();
}

TEST_F(CVHistoryOperationsTest, UnsavedChangesAreNotLostByReturning) {
    startWithVersion();
    const QString version = mHome.path("version.corvella");
    ASSERT_TRUE(QFile::copy(mVersion, version));
    const QString folder = QFileInfo(dataFile()).path();
    ASSERT_TRUE(QDir().rename(folder, folder + " gone"));
    record(14, "Kiosk", "Food");
    EXPECT_FALSE(operations().returnTo(version, window()));
    EXPECT_EQ(titles(), QStringList{"Your last changes are not saved"});
    EXPECT_EQ(payees(), (QStringList{"Baker", "Kiosk", "Market"}));
    ASSERT_TRUE(QDir().rename(folder + " gone", folder));
    document().workbookSave();
    quit();
}

TEST_F(CVHistoryOperationsTest, ACopyOfAVersionHasItsBytesAndIsOnlyTheUsers) {
    startWithVersion();
    const QString target = mHome.path("copy.corvella");
    mPanels.answer(target);
    EXPECT_TRUE(operations().saveCopy(mVersion, window()));
    EXPECT_EQ(bytesOf(target), bytesOf(mVersion));
    EXPECT_EQ(QFile::permissions(target) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_EQ(mPanels.asked()[0].proposedName, QFileInfo(mVersion).completeBaseName());
    EXPECT_EQ(mPanels.asked()[0].kinds[0].suffix, "corvella");
    EXPECT_EQ(remark(), "A copy was saved as “copy.corvella”.");
    quit();
}

TEST_F(CVHistoryOperationsTest, ACopyOfTheBudgetHoldsWhatIsShown) {
    startWithVersion();
    const QString target = mHome.path("copy.corvella");
    mPanels.answer(target);
    EXPECT_TRUE(operations().saveCopy({}, window()));
    EXPECT_EQ(bytesOf(target), bytesOf(dataFile()));
    EXPECT_EQ(mPanels.asked()[0].proposedName, "Corvella Data Copy");
    quit();
}

TEST_F(CVHistoryOperationsTest, ACopyIsWrittenOverNoDataFileAndNoVersion) {
    startWithVersion();
    const QString kept = CVKeptCopy::keep(dataFile(), CVKeptReason::Unreadable, QDateTime::currentDateTime()).path;
    ASSERT_FALSE(kept.isEmpty());
    const QByteArray version = bytesOf(mVersion);
    const QByteArray present = bytesOf(dataFile());
    const QStringList sources{mVersion, QString()};
    for (const QString& source : sources) {
        for (const QString& target : {dataFile(), mVersion, kept}) {
            mPanels.answer(target);
            EXPECT_FALSE(operations().saveCopy(source, window())) << target.toStdString();
            EXPECT_EQ(mAlerts.shown().constLast().title, "The copy was not saved");
        }
    }
    EXPECT_EQ(mAlerts.shown().size(), 6);
    EXPECT_EQ(bytesOf(mVersion), version);
    EXPECT_EQ(bytesOf(dataFile()), present);
    quit();
}

TEST_F(CVHistoryOperationsTest, ACopyThatFailsIsToldWithItsReasonAndACancelledOneIsNot) {
    startWithVersion();
    EXPECT_FALSE(operations().saveCopy(mVersion, window()));
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    mPanels.answer(mHome.path("no such folder/copy.corvella"));
    EXPECT_FALSE(operations().saveCopy(mVersion, window()));
    ASSERT_EQ(mAlerts.shown().size(), 1);
    EXPECT_TRUE(mAlerts.shown()[0].message.contains("No such file or directory"))
        << mAlerts.shown()[0].message.toStdString();
    const QString target = mHome.path("copy.corvella");
    mPanels.answer(target);
    EXPECT_FALSE(operations().saveCopy("/proc/self/mem", window()));
    EXPECT_TRUE(mAlerts.shown()[1].message.contains("Input/output error")) << mAlerts.shown()[1].message.toStdString();
    EXPECT_FALSE(QFile::exists(target)) << "no part of a copy is left";
    quit();
}

TEST_F(CVHistoryOperationsTest, TheVersionsMoveWithTheDataFileAndTheFormerFileIsOneOfThem) {
    startWithVersion();
    const QByteArray present = bytesOf(dataFile());
    const QByteArray version = bytesOf(mVersion);
    const QString former = dataFile();
    mDelegate->showPreferences();
    ASSERT_TRUE(QDir().mkpath(mHome.path("new place")));
    mPanels.answer(mHome.path("new place"));
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_EQ(dataFile(), mHome.path("new place/Corvella Data.corvella"));
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    ASSERT_EQ(versions().size(), 2);
    EXPECT_EQ(bytesKept(CVVersionReason::Move), present);
    EXPECT_EQ(bytesKept(CVVersionReason::Removal), version);
    EXPECT_TRUE(CVVersionFolder(former).versions().isEmpty());
    EXPECT_EQ(bytesOf(former), present) << "the former file stays";
    quit();
}

TEST_F(CVHistoryOperationsTest, VersionsThatCannotMoveStayAndAreTold) {
    startWithVersion();
    const QString former = dataFile();
    mDelegate->showPreferences();
    ASSERT_TRUE(QDir().mkpath(mHome.path("new place")));
    ASSERT_TRUE(QFile::link("/dev/null", mHome.path("new place/Earlier Versions")));
    mPanels.answer(mHome.path("new place"));
    preference<QAbstractButton>("Change Location")->click();
    ASSERT_EQ(titles(), QStringList{"Something of your budget is still in the old place"});
    EXPECT_TRUE(mAlerts.shown()[0].message.contains("Not a directory")) << mAlerts.shown()[0].message.toStdString();
    EXPECT_EQ(CVVersionFolder(former).versions().size(), 1);
    EXPECT_TRUE(bytesOf(dataFile()).contains("Baker"));
    quit();
}

TEST_F(CVHistoryOperationsTest, TheNotesOfImportsMoveWithTheDataFile) {
    startWithVersion();
    const QString former = dataFile();
    const QByteArray notes = "{\"learnt\": true}";
    writeFile(former + ".import", notes);
    mDelegate->showPreferences();
    ASSERT_TRUE(QDir().mkpath(mHome.path("new place")));
    // Whatever becomes of the versions.
    ASSERT_TRUE(QFile::link("/dev/null", mHome.path("new place/Earlier Versions")));
    mPanels.answer(mHome.path("new place"));
    preference<QAbstractButton>("Change Location")->click();
    EXPECT_EQ(bytesOf(dataFile() + ".import"), notes);
    EXPECT_FALSE(QFile::exists(former + ".import"));
    quit();
}

TEST_F(CVHistoryOperationsTest, NotesOfImportsThatCannotMoveStayAndAreTold) {
    startWithVersion();
    const QString former = dataFile();
    ASSERT_TRUE(QDir().mkpath(former + ".import"));
    mDelegate->showPreferences();
    ASSERT_TRUE(QDir().mkpath(mHome.path("new place")));
    mPanels.answer(mHome.path("new place"));
    preference<QAbstractButton>("Change Location")->click();
    ASSERT_EQ(titles(), QStringList{"Something of your budget is still in the old place"});
    EXPECT_TRUE(mAlerts.shown()[0].message.contains("What was learnt from imported statements could not be moved"))
        << mAlerts.shown()[0].message.toStdString();
    EXPECT_EQ(versions().size(), 2);
    EXPECT_TRUE(QFileInfo::exists(former + ".import"));
    quit();
}

/// A save that failed because the disk is full.
CVSaveOutcome fullDisk(const QString& path) {
    CVSaveOutcome outcome;
    outcome.saved = false;
    outcome.path = path;
    outcome.message = "The budget could not be saved.";
    outcome.diskIsFull = outcome.canMakeRoom = true;
    return outcome;
}

TEST_F(CVHistoryOperationsTest, AFullDiskOffersToDeleteTheVersionsAndLeadsThere) {
    startWithVersion();
    emit mDelegate->saves().saveFinished(fullDisk(dataFile()));
    auto* const button = window().findChild<QAbstractButton*>("mMakeRoomButton");
    ASSERT_TRUE(button->isVisible());
    button->click();
    ASSERT_TRUE(mDelegate->preferences()->isVisible());
    EXPECT_TRUE(preference<QAbstractButton>("Delete Earlier Versions")->isVisible());
    EXPECT_EQ(versions().size(), 1) << "nothing is deleted without a question";
    document().workbookSave();
    quit();
}

TEST_F(CVHistoryOperationsTest, TroubleWithVersionsIsRemarkedOnceAndAsksNothing) {
    start();
    CVSaveOutcome outcome;
    outcome.versionTrouble = "An earlier version could not be kept.";
    emit mDelegate->saves().saveFinished(outcome);
    EXPECT_EQ(remark(), outcome.versionTrouble);
    mDelegate->mainWindow()->saveStatus().remark("Something else.");
    emit mDelegate->saves().saveFinished(outcome);
    EXPECT_EQ(remark(), "Something else.");
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    quit();
}

TEST_F(CVHistoryOperationsTest, LostAccessIsRemarkedBesideTroubleWithVersions) {
    start();
    CVSaveOutcome outcome;
    outcome.versionTrouble = "An earlier version could not be kept.";
    outcome.accessTrouble = "“Data” was saved, but its group has no access any more.";
    emit mDelegate->saves().saveFinished(outcome);
    EXPECT_EQ(remark(), outcome.versionTrouble + ' ' + outcome.accessTrouble);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
    quit();
}

TEST_F(CVHistoryOperationsTest, TroubleWithVersionsIsRemarkedAgainAfterASaveWithoutIt) {
    start();
    CVSaveOutcome outcome;
    outcome.versionTrouble = "An earlier version could not be kept.";
    emit mDelegate->saves().saveFinished(outcome);
    mDelegate->mainWindow()->saveStatus().remark("Something else.");
    emit mDelegate->saves().saveFinished(CVSaveOutcome());
    emit mDelegate->saves().saveFinished(outcome);
    EXPECT_EQ(remark(), outcome.versionTrouble);
    quit();
}

} // namespace
