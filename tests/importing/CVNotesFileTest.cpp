#include "importing/CVNotesFile.h"

#include "importing/ImportFixtures.h"
#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

const QDateTime kNow(QDate(2026, 3, 14), QTime(15, 9, 26));

CVImportNotes notesThatLeaveOut(const QString& payee) {
    CVImportLine line = importLine(day(2026, 3, 1), 500, payee, "");
    line.checked = false;
    CVImportNotes notes;
    notes.noteLines({1, "Checking"}, {}, std::span(&line, 1));
    return notes;
}

class CVNotesFileTest : public testing::Test {
protected:
    CVNotesFileTest() { writeFile(mDataFile, "data"); }

    ScratchHome mHome;
    QString mFolder = mHome.path("A Folder");
    QString mDataFile = mFolder + "/My Data.corvella";
    QString mNotesFile = mFolder + "/My Data.corvella.import";
    CVNotesFile mFile{mDataFile};
};

TEST_F(CVNotesFileTest, StandsBesideTheDataFile) {
    EXPECT_EQ(mFile.path(), mNotesFile);
    EXPECT_TRUE(mFile.write(notesThatLeaveOut("Savings"), kNow).ok());
    EXPECT_EQ(namesIn(mFolder), QStringList({"My Data.corvella", "My Data.corvella.import"}));
    const auto reading = CVNotesFile(mDataFile).read();
    EXPECT_EQ(reading.problem, QString());
    EXPECT_TRUE(reading.notes.wasLeftOut("Savings"));
}

TEST_F(CVNotesFileTest, StandsBesideTheFileThatALinkLeadsTo) {
    makeLink(mDataFile, mHome.path("link.corvella"));
    EXPECT_EQ(CVNotesFile(mHome.path("link.corvella")).path(), mNotesFile);
}

TEST_F(CVNotesFileTest, NeedNotBeThere) {
    const auto reading = mFile.read();
    EXPECT_EQ(reading.problem, QString());
    EXPECT_FALSE(reading.notes.wasLeftOut("Savings"));
    EXPECT_EQ(namesIn(mFolder), QStringList({"My Data.corvella"}));
}

TEST_F(CVNotesFileTest, HasTheAccessOfTheDataFileAtEachWriting) {
    for (const unsigned mode : {0600U, 0640U, 0660U, 0600U}) {
        setMode(mDataFile, mode);
        EXPECT_TRUE(mFile.write({}, kNow).ok());
        EXPECT_EQ(modeOf(mNotesFile), static_cast<int>(mode));
    }
}

TEST_F(CVNotesFileTest, IsPrivateWithoutADataFile) {
    const CVNotesFile file(mFolder + "/new.corvella");
    EXPECT_TRUE(file.write({}, kNow).ok());
    EXPECT_EQ(modeOf(file.path()), 0600);
}

TEST_F(CVNotesFileTest, IsKeptAsideAndBegunAnewWhenItIsDamagedOrOfAnotherFormat) {
    for (const QByteArray& damaged : {QByteArray("{\"import no"), QByteArray(), QByteArray("{\"import notes\": 2}"),
                                      QByteArray("\x7f"
                                                 "ELF")}) {
        writeFile(mNotesFile, damaged);
        EXPECT_EQ(mFile.read().problem, "it does not hold what Corvella has written");
        EXPECT_EQ(readFile(mNotesFile), damaged);
        const auto writing = mFile.write(notesThatLeaveOut("Savings"), kNow);
        EXPECT_TRUE(writing.ok()) << writing.error.toStdString();
        EXPECT_EQ(readFile(writing.kept), damaged);
        EXPECT_TRUE(mFile.read().notes.wasLeftOut("Savings"));
    }
    EXPECT_TRUE(namesIn(mFolder).contains("My Data.corvella (unreadable 2026-03-14 150926).import"));
    EXPECT_EQ(namesIn(mFolder).size(), 6);
}

TEST_F(CVNotesFileTest, IsKeptAsideWhereAFolderStands) {
    writeFile(mNotesFile + "/inside", "inside");
    EXPECT_EQ(mFile.read().problem, "it is not a file");
    const auto writing = mFile.write({}, kNow);
    EXPECT_TRUE(writing.ok()) << writing.error.toStdString();
    EXPECT_EQ(readFile(writing.kept + "/inside"), "inside");
    EXPECT_EQ(mFile.read().problem, QString());
}

TEST_F(CVNotesFileTest, CannotBeWrittenWithoutAFolder) {
    const CVNotesFile file(mHome.path("none/data.corvella"));
    EXPECT_FALSE(file.write({}, kNow).ok());
    EXPECT_EQ(file.read().problem, QString());
}

TEST_F(CVNotesFileTest, CannotBeWrittenWhereTheLinksGoRoundInACircle) {
    makeLink("b", mHome.path("a"));
    makeLink("a", mHome.path("b"));
    const CVNotesFile file(mHome.path("a"));
    EXPECT_EQ(file.path(), QString());
    EXPECT_FALSE(file.write({}, kNow).ok());
}

class CVNotesFileMoveTest : public CVNotesFileTest {
protected:
    CVNotesFileMoveTest() {
        writeFile(mOtherDataFile, "data");
        setMode(mOtherDataFile, 0640);
    }

    QString mOtherFolder = mHome.path("Other Folder");
    QString mOtherDataFile = mOtherFolder + "/My Data.corvella";
    CVNotesFile mOther{mOtherDataFile};
};

TEST_F(CVNotesFileMoveTest, TakesTheNotesToTheOtherDataFile) {
    EXPECT_TRUE(mFile.write(notesThatLeaveOut("Savings"), kNow).ok());
    EXPECT_TRUE(mFile.moveTo(mOther, kNow).ok());
    EXPECT_TRUE(mOther.read().notes.wasLeftOut("Savings"));
    EXPECT_EQ(modeOf(mOther.path()), 0640);
    EXPECT_EQ(namesIn(mFolder), QStringList({"My Data.corvella"}));
}

TEST_F(CVNotesFileMoveTest, KeepsAsideWhatBelongedToTheFileThatStoodThere) {
    EXPECT_TRUE(mFile.write(notesThatLeaveOut("Savings"), kNow).ok());
    EXPECT_TRUE(mOther.write(notesThatLeaveOut("Rent"), kNow).ok());
    EXPECT_TRUE(mFile.moveTo(mOther, kNow).ok());
    EXPECT_TRUE(mOther.read().notes.wasLeftOut("Savings"));
    EXPECT_FALSE(mOther.read().notes.wasLeftOut("Rent"));
    const QString kept = mOtherFolder + "/My Data.corvella (replaced when moved 2026-03-14 150926).import";
    EXPECT_TRUE(readFile(kept).contains("rent"));
}

TEST_F(CVNotesFileMoveTest, KeepsAsideWhatBelongedToTheFileThatStoodThereWithoutNotesOfItsOwn) {
    EXPECT_TRUE(mOther.write(notesThatLeaveOut("Rent"), kNow).ok());
    EXPECT_TRUE(mFile.moveTo(mOther, kNow).ok());
    EXPECT_FALSE(mOther.read().notes.wasLeftOut("Rent"));
    EXPECT_EQ(namesIn(mOtherFolder).size(), 2);
}

TEST_F(CVNotesFileMoveTest, DoesNothingWithoutNotes) {
    EXPECT_TRUE(mFile.moveTo(mOther, kNow).ok());
    EXPECT_EQ(namesIn(mOtherFolder), QStringList({"My Data.corvella"}));
}

TEST_F(CVNotesFileMoveTest, DoesNothingToTheSamePlace) {
    EXPECT_TRUE(mFile.write(notesThatLeaveOut("Savings"), kNow).ok());
    EXPECT_TRUE(mFile.moveTo(CVNotesFile(mDataFile), kNow).ok());
    EXPECT_TRUE(mFile.read().notes.wasLeftOut("Savings"));
}

TEST_F(CVNotesFileMoveTest, LeavesTheNotesWhereTheyCannotBeMoved) {
    EXPECT_TRUE(mFile.write(notesThatLeaveOut("Savings"), kNow).ok());
    EXPECT_FALSE(mFile.moveTo(CVNotesFile(mHome.path("none/data.corvella")), kNow).ok());
    EXPECT_TRUE(mFile.read().notes.wasLeftOut("Savings"));
}

TEST_F(CVNotesFileMoveTest, TakesDamagedNotesAlong) {
    writeFile(mNotesFile, "damaged");
    EXPECT_TRUE(mFile.moveTo(mOther, kNow).ok());
    EXPECT_EQ(readFile(mOther.path()), "damaged");
}

} // namespace
