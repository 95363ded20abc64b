#include "storage/CVDocumentFile.h"

#include "base/CVDefaultsKeys.h"
#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentXML.h"
#include "storage/LogCapture.h"
#include "storage/ParsedBudget.h"
#include "storage/SampleFile.h"
#include "storage/ScratchFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Outcome = CVLoadReport::Outcome;

/// One start of the program on the data file of a home.
struct Launch {
    explicit Launch(ScratchHome& home)
        : file(home.folders(), home.userDefaults())
        , document(center, home.userDefaults())
        , report(file.initWithStandardUserFile(document)) {}

    CVSaveOutcome save() {
        EXPECT_TRUE(document.workbookSave());
        return file.saves().waitForFinished();
    }

    QBNotificationCenter center;
    CVDocumentFile file;
    CVDocument document;
    CVLoadReport report;
};

class CVDocumentFileTest : public testing::Test {
protected:
    ScratchHome mHome;
    QString mFolder = mHome.folders().applicationSupport + QStringLiteral("/Quenby Labs/Corvella");
    QString mPath = mFolder + QStringLiteral("/Corvella Data.corvella");
    LogCapture mLog;
};

TEST_F(CVDocumentFileTest, startsWithTheDefaultsWhereThereIsNoFile) {
    Launch launch(mHome);
    EXPECT_EQ(launch.report.outcome, Outcome::NoFile);
    EXPECT_EQ(launch.report.reason, QString());
    EXPECT_EQ(launch.document.currentTransactionSet(), 0U);
    EXPECT_GE(launch.document.countOfCategories(), 20U);
    EXPECT_EQ(launch.document.uniqueID(), launch.document.countOfCategories());
    EXPECT_EQ(mHome.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 10);
    EXPECT_FALSE(launch.file.saves().isSaving());
    EXPECT_FALSE(QFileInfo::exists(mFolder));
}

TEST_F(CVDocumentFileTest, makesFolderAndFileWithTheFirstSave) {
    Launch launch(mHome);
    const CVSaveOutcome outcome = launch.save();
    EXPECT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(outcome.path, mPath);
    EXPECT_EQ(outcome.keptCopy, QString());
    EXPECT_EQ(readFile(mPath), CVDocumentXMLRepresentation(launch.document).joined());
    EXPECT_EQ(modeOf(mPath), 0600);
    EXPECT_EQ(namesIn(mFolder), QStringList({"Corvella Data.corvella"}));

    const Launch next(mHome);
    EXPECT_EQ(next.report.outcome, Outcome::Loaded);
    EXPECT_EQ(ParsedBudget::describe(next.document), ParsedBudget::describe(launch.document));
}

TEST_F(CVDocumentFileTest, readsTheFileAndSavesTheSameBytes) {
    writeFile(mPath, sampleFile());
    Launch launch(mHome);
    EXPECT_EQ(launch.report.outcome, Outcome::Loaded);
    EXPECT_EQ(launch.report.path, mPath);
    EXPECT_EQ(launch.report.reason, QString());
    EXPECT_EQ(launch.document.transactions().size(), 4U);
    EXPECT_EQ(launch.document.uniqueID(), 40U);
    EXPECT_EQ(launch.document.currentTransactionSet(), 27U);
    EXPECT_TRUE(launch.save().saved);
    EXPECT_EQ(readFile(mPath), sampleFile());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Corvella Data.corvella", "Earlier Versions"}));
}

TEST_F(CVDocumentFileTest, sortsWhatItReadAndComputesTheBounds) {
    writeFile(mPath, inRoot(R"(<MiscInfo id="3"/><Category id="1">a</Category>)"
                            R"(<Transaction categoryID="1"><Data date="2011/01/01"/></Transaction>)"
                            R"(<Transaction categoryID="1"><Data date="2013/01/01"/></Transaction>)"
                            R"(<Transaction categoryID="1"><Data date="2012/01/01"/></Transaction>)"));
    const Launch launch(mHome);
    EXPECT_EQ(launch.document.transactions().front()->effectiveDate(), day(2013, 1, 1));
    EXPECT_EQ(launch.document.earliestTransactionDate(), day(2011, 1, 1));
    EXPECT_EQ(launch.document.latestTransactionDate(), day(2013, 1, 1));
    EXPECT_EQ(launch.document.categories().front()->earliestTransactionDate(), day(2011, 1, 1));
}

TEST_F(CVDocumentFileTest, addsTheDefaultsToAFileWhoseCounterIsZero) {
    writeFile(mPath, inRoot(R"(<MiscInfo id="0" current_transaction_set_id="5"/><Transaction/>)"));
    const Launch launch(mHome);
    EXPECT_EQ(launch.report.outcome, Outcome::Loaded);
    EXPECT_EQ(launch.document.transactions().size(), 1U);
    EXPECT_EQ(launch.document.currentTransactionSet(), 0U);
    EXPECT_GT(launch.document.countOfCategories(), 0U);
}

TEST_F(CVDocumentFileTest, readsAChosenFileOnceAndAsTheUsersOwn) {
    for (const QByteArray& file :
         {sampleFile(), inRoot(R"(<MiscInfo id="0" current_transaction_set_id="5"/><Transaction/>)")}) {
        writeFile(mPath, file);
        const Launch launch(mHome);
        QBNotificationCenter center;
        CVDocumentFile other(mHome.folders(), mHome.userDefaults());
        CVDocument document(center, mHome.userDefaults());
        int readings = 0;
        other.setReadingProgress([&readings](double part) {
            readings += part == 0 ? 1 : 0;
            return true;
        });
        EXPECT_EQ(other.initWithChosenFile(document, mPath).outcome, Outcome::Loaded);
        EXPECT_EQ(readings, 1);
        EXPECT_EQ(ParsedBudget::describe(document), ParsedBudget::describe(launch.document));
        EXPECT_EQ(document.latestTransactionDate(), launch.document.latestTransactionDate());
        EXPECT_TRUE(document.workbookSave());
        const CVSaveOutcome outcome = other.saves().waitForFinished();
        EXPECT_EQ(outcome.keptCopy, QString()) << "it counts as read";
        EXPECT_EQ(readFile(mPath), CVDocumentXMLRepresentation(document).joined());
    }
}

TEST_F(CVDocumentFileTest, leavesAChosenFileThatCannotBeReadAsItIsAndWithItTheSettings) {
    writeFile(mPath, sampleFile().chopped(50));
    mHome.userDefaults().setInteger(CVDefaultsKeys::kNumberOfItems, 25);
    QBNotificationCenter center;
    CVDocumentFile file(mHome.folders(), mHome.userDefaults());
    CVDocument document(center, mHome.userDefaults());
    const CVLoadReport report = file.initWithChosenFile(document, mPath);
    EXPECT_EQ(report.outcome, Outcome::Unreadable);
    EXPECT_NE(report.reason, QString());
    EXPECT_EQ(document.countOfCategories(), 0U);
    EXPECT_TRUE(document.workbookSave());
    EXPECT_FALSE(file.saves().isSaving());
    EXPECT_EQ(readFile(mPath), sampleFile().chopped(50));
    EXPECT_EQ(namesIn(mFolder), QStringList({"Corvella Data.corvella"}));
    EXPECT_EQ(mHome.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems), 25);
}

TEST_F(CVDocumentFileTest, savesTheStateOfTheMomentOfTheRequest) {
    Launch launch(mHome);
    launch.document.insertCategoryName(QStringLiteral("Before"));
    const QByteArray before = CVDocumentXMLRepresentation(launch.document).joined();
    launch.document.workbookSave();
    launch.document.insertCategoryName(QStringLiteral("After"));
    EXPECT_TRUE(launch.file.saves().waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), before);
}

TEST_F(CVDocumentFileTest, savesAFileOfTheOlderFolderThere) {
    const QString older = mHome.folders().applicationSupport + "/Quenby/Corvella/Corvella Data.corvella";
    writeFile(older, sampleFile());
    Launch launch(mHome);
    EXPECT_EQ(launch.report.path, older);
    launch.document.insertCategoryName(QStringLiteral("New"));
    EXPECT_EQ(launch.save().path, older);
    EXPECT_TRUE(readFile(older).contains("New"));
    EXPECT_FALSE(QFileInfo::exists(mFolder));
}

TEST_F(CVDocumentFileTest, savesToThePreferredPathAlthoughItsFileIsGone) {
    const QString preferred = mHome.path(QStringLiteral("Stick/My Budget.corvella"));
    mHome.userDefaults().setString(CVDefaultsKeys::kDataFileLocation, preferred);
    Launch launch(mHome);
    EXPECT_EQ(launch.report.outcome, Outcome::NoFile);
    const CVSaveOutcome failed = launch.save();
    EXPECT_FALSE(failed.saved);
    EXPECT_TRUE(failed.message.contains(preferred)) << failed.message.toStdString();
    QDir().mkpath(QFileInfo(preferred).path());
    EXPECT_TRUE(launch.save().saved);
    EXPECT_EQ(readFile(preferred), CVDocumentXMLRepresentation(launch.document).joined());
}

TEST_F(CVDocumentFileTest, saysThatTheFolderCannotBeMade) {
    writeFile(mHome.folders().applicationSupport, "a file in the way");
    Launch launch(mHome);
    const CVSaveOutcome outcome = launch.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.message, "The budget could not be saved: the folder for it could not be made in “" +
                                   mHome.folders().applicationSupport + "”.");
}

TEST_F(CVDocumentFileTest, startsAndSavesNothingWhereThereIsNoPlaceForFiles) {
    BudgetBuilder budget;
    CVDocumentFile file({}, mHome.userDefaults());
    EXPECT_EQ(file.initWithStandardUserFile(budget.document()).outcome, Outcome::NoFile);
    EXPECT_EQ(file.placeForSaving(), QString());
    EXPECT_EQ(file.dataFiles(), QStringList());
    budget.document().workbookSave();
    EXPECT_EQ(file.saves().waitForFinished().message,
              "The budget could not be saved: the folder for it could not be made in “”.");
}

TEST_F(CVDocumentFileTest, readsNoFileThatIsNotThere) {
    BudgetBuilder budget;
    CVDocumentFile file(mHome.folders(), mHome.userDefaults());
    const CVLoadReport report = file.readFromURL(budget.document(), mPath);
    EXPECT_EQ(report.outcome, Outcome::NotRead);
    EXPECT_EQ(report.path, mPath);
    EXPECT_EQ(report.reason, "No such file or directory");
    EXPECT_FALSE(report.signature);
}

TEST_F(CVDocumentFileTest, writesAndCleansUpNothingWhileItIsOnlyLookedAt) {
    const pid_t ended = ::fork();
    if (ended == 0)
        ::_exit(0);
    ::waitpid(ended, nullptr, 0);
    writeFile(mPath, sampleFile());
    const QString left = QStringLiteral("%1/.Corvella Data.corvella.saving-%2-%3-abcdef")
                             .arg(mFolder, QSysInfo::machineHostName())
                             .arg(ended);
    writeFile(left, "<?xml");
    Launch launch(mHome);
    launch.file.setReadOnly(true);
    launch.document.insertCategoryName(QStringLiteral("New"));
    EXPECT_TRUE(launch.save().saved);
    EXPECT_TRUE(launch.file.recoverInterruptedSaves().ok());
    EXPECT_EQ(readFile(mPath), sampleFile());
    EXPECT_TRUE(QFileInfo::exists(left));
    launch.file.setReadOnly(false);
    EXPECT_TRUE(launch.file.recoverInterruptedSaves().ok());
    EXPECT_FALSE(QFileInfo::exists(left));
}

TEST_F(CVDocumentFileTest, knowsTwoTypesOfDocument) {
    for (const char* type : {CVDocumentFile::kDocumentType, CVDocumentFile::kXMLDocumentType}) {
        BudgetBuilder budget;
        CVDocumentFile file(mHome.folders(), mHome.userDefaults());
        EXPECT_TRUE(file.readFromData(budget.document(), sampleFile(), QLatin1String(type)));
        EXPECT_EQ(budget.document().transactions().size(), 4U);
        const auto text = CVDocumentFile::dataOfType(budget.document(), QLatin1String(type));
        ASSERT_TRUE(text);
        EXPECT_EQ(text->joined(), sampleFile());
    }
    EXPECT_STRNE(CVDocumentFile::kDocumentType, CVDocumentFile::kXMLDocumentType);
}

TEST_F(CVDocumentFileTest, knowsNoOtherTypeOfDocument) {
    for (const char* type : {"", "public.xml", "com.quenbylabs.corvella", "COM.QUENBYLABS.CORVELLA.XML"}) {
        BudgetBuilder budget;
        CVDocumentFile file(mHome.folders(), mHome.userDefaults());
        EXPECT_FALSE(file.readFromData(budget.document(), sampleFile(), QLatin1String(type))) << type;
        EXPECT_TRUE(budget.document().transactions().empty()) << type;
        EXPECT_FALSE(CVDocumentFile::dataOfType(budget.document(), QLatin1String(type))) << type;
    }
}

} // namespace
