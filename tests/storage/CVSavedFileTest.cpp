#include "storage/CVSavedFile.h"

#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentXML.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>

namespace {

using Kind = CVOutsideChange::Kind;

constexpr qint64 kLimit = 1'000'000;

/// A budget of one transaction, as the program writes it.
QByteArray budget(const QString& payee) {
    BudgetBuilder builder;
    builder.category("Food", 1).transaction({.date = day(2020, 1, 2), .amount = 5, .payTo = payee, .category = "Food"});
    builder.lastID(1);
    return CVDocumentXMLRepresentation(builder.document()).joined();
}

/// A file that this program has read, and another program that changes it.
class CVSavedFileTest : public testing::Test {
protected:
    CVSavedFileTest() {
        writeFile(mPath, mRead);
        mFile.markAsRead(*CVFileSignature::of(mPath));
    }

    [[nodiscard]] std::optional<Kind> look() {
        const auto change = mFile.look();
        return change ? std::optional(change->kind) : std::nullopt;
    }
    CVSaveOutcome save(const QByteArray& bytes, CVVersionKeeping keeping = {},
                       CVUnreadableFile unreadable = CVUnreadableFile::AwaitedIfWatched) {
        return mFile.save(textOf(bytes), keeping, unreadable);
    }
    void setTimes(const struct timespec& modified) const {
        const std::array<timespec, 2> times{modified, modified};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(mPath).constData(), times.data(), 0), 0);
    }
    /// Replaces the file as a synchronizing program does: whole, under another inode.
    void replace(const QByteArray& bytes) const {
        writeFile(mPath + ".new", bytes);
        ASSERT_EQ(std::rename(QFile::encodeName(mPath + ".new").constData(), QFile::encodeName(mPath).constData()), 0);
    }
    [[nodiscard]] QByteArrayList versions() const {
        QByteArrayList kept;
        for (const CVVersion& version : CVVersionFolder(mPath).versions())
            kept.append(readFile(version.path));
        return kept;
    }

    ScratchHome mHome;
    QString mPath = mHome.path(QStringLiteral("Data.corvella"));
    QByteArray mRead = budget("Baker");
    CVSavedFile mFile{mPath};
};

TEST_F(CVSavedFileTest, tellsNothingOfAFileThatStaysAsItIs) {
    EXPECT_EQ(look(), std::nullopt);
    EXPECT_EQ(look(), std::nullopt);
}

TEST_F(CVSavedFileTest, tellsNothingOfAFileThatItHasNeitherReadNorWritten) {
    CVSavedFile other(mPath);
    EXPECT_FALSE(other.look());
}

TEST_F(CVSavedFileTest, tellsOnceWhatAChangedFileHolds) {
    replace(budget("Grocer"));
    const auto change = mFile.look();
    ASSERT_TRUE(change);
    EXPECT_EQ(change->kind, Kind::Changed);
    ASSERT_EQ((*change->budget)->transactions().size(), 1U);
    EXPECT_EQ((*change->budget)->transactions()[0]->payTo(), "Grocer");
    EXPECT_EQ(look(), std::nullopt);
    replace(budget("Butcher"));
    EXPECT_EQ(look(), Kind::Changed);
}

TEST_F(CVSavedFileTest, noticesAChangeInPlaceOfTheSameSizeWhoseTimeWasRestored) {
    EXPECT_TRUE(save(budget("Baker")).message.isEmpty());
    struct stat before {};
    ASSERT_EQ(::stat(QFile::encodeName(mPath).constData(), &before), 0);
    writeFile(mPath, budget("Bakes"));
    setTimes(before.st_mtim);
    EXPECT_EQ(CVFileSignature::of(mPath)->size, before.st_size);
    EXPECT_EQ(look(), Kind::Changed);
}

TEST_F(CVSavedFileTest, tellsNothingOfATouchNorOfTheSameBytesAgain) {
    EXPECT_TRUE(save(mRead).message.isEmpty());
    setTimes({.tv_sec = 1'000'000'000, .tv_nsec = 0});
    EXPECT_EQ(look(), std::nullopt);
    writeFile(mPath, mRead);
    EXPECT_EQ(look(), std::nullopt);
    replace(mRead);
    EXPECT_EQ(look(), std::nullopt);
    EXPECT_EQ(save(budget("Grocer")).keptCopy, QString());
    EXPECT_THAT(namesIn(mHome.path()), testing::ElementsAre("Data.corvella"));
}

TEST_F(CVSavedFileTest, tellsOnTheSecondLookThatAFileCannotBeReadAndThenThatItCanAgain) {
    EXPECT_EQ(look(), std::nullopt);
    replace(mRead.first(mRead.size() / 2));
    EXPECT_EQ(look(), std::nullopt);
    EXPECT_EQ(look(), Kind::Unreadable);
    EXPECT_EQ(look(), std::nullopt);
    replace(budget("Grocer"));
    EXPECT_EQ(look(), Kind::Changed);
}

TEST_F(CVSavedFileTest, tellsThatTheFileIsGoneAndThatItIsBack) {
    QFile::rename(mPath, mPath + ".away");
    EXPECT_EQ(look(), Kind::Gone);
    EXPECT_EQ(look(), std::nullopt);
    QFile::rename(mPath + ".away", mPath);
    EXPECT_EQ(look(), Kind::AsKnown);
    EXPECT_EQ(look(), std::nullopt);
}

TEST_F(CVSavedFileTest, waitsWithASaveWhileAWatchedFileCannotBeRead) {
    EXPECT_EQ(look(), std::nullopt);
    const QByteArray half = mRead.first(mRead.size() / 2);
    replace(half);
    const CVSaveOutcome outcome = save(budget("Mine"));
    EXPECT_TRUE(outcome.awaitsReadable);
    EXPECT_TRUE(outcome.message.contains("perhaps because another program is still writing it"))
        << outcome.message.toStdString();
    EXPECT_EQ(readFile(mPath), half);
    EXPECT_THAT(namesIn(mHome.path()), testing::ElementsAre("Data.corvella"));

    replace(budget("Grocer"));
    EXPECT_EQ(readFile(save(budget("Mine")).keptCopy), budget("Grocer"));
    EXPECT_EQ(readFile(mPath), budget("Mine"));
}

TEST_F(CVSavedFileTest, keepsWhatCannotBeReadWhenNobodyCanWait) {
    EXPECT_EQ(look(), std::nullopt);
    replace("half");
    const CVSaveOutcome outcome = save(budget("Mine"), {}, CVUnreadableFile::Replaced);
    EXPECT_TRUE(outcome.message.isEmpty()) << outcome.message.toStdString();
    EXPECT_EQ(readFile(outcome.keptCopy), "half");
    EXPECT_EQ(readFile(mPath), budget("Mine"));
}

TEST_F(CVSavedFileTest, tellsWhatBothBudgetsHadInCommonAndKeepsItAsAVersion) {
    EXPECT_TRUE(save(budget("Common")).message.isEmpty());
    replace(budget("Theirs"));
    const CVSaveOutcome outcome = save(budget("Ours"), {CVVersionReason::Removal, kLimit});
    EXPECT_EQ(readFile(outcome.keptCopy), budget("Theirs"));
    ASSERT_TRUE(outcome.common);
    EXPECT_EQ(outcome.common->joined(), budget("Common"));
    EXPECT_EQ(readFile(mPath), budget("Ours"));
    EXPECT_THAT(versions(), testing::ElementsAre(budget("Common")));
    EXPECT_EQ(CVVersionFolder(mPath).versions()[0].name.reason, CVVersionReason::Removal);
    EXPECT_FALSE(save(budget("Ours again")).common);
}

TEST_F(CVSavedFileTest, readsAnothersChangedFileOnceBeforeItIsKept) {
    EXPECT_EQ(look(), std::nullopt);
    replace(budget("Somebody else entirely"));
    const int opened = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(opened, QFile::encodeName(mPath).constData(), IN_OPEN | IN_CLOSE), 0);
    EXPECT_TRUE(save(budget("Ours")).keptIsBudget);
    std::array<inotify_event, 16> events{};
    // Equal events in a row would be told as one.
    EXPECT_EQ(::read(opened, events.data(), sizeof(events)), ssize_t(2 * sizeof(inotify_event)));
    ::close(opened);
}

TEST_F(CVSavedFileTest, takesAChangedFileOverAndKeepsTheFormerStateAsAVersion) {
    replace(budget("Theirs"));
    const auto change = mFile.look();
    ASSERT_TRUE(change);
    EXPECT_EQ(mFile.keepState(textOf(mRead), kLimit).versionTrouble, QString());
    mFile.accept(change->signature, change->partly.readAs());
    EXPECT_THAT(versions(), testing::ElementsAre(mRead));
    EXPECT_EQ(CVVersionFolder(mPath).versions()[0].name.reason, CVVersionReason::TakingOver);
    EXPECT_EQ(look(), std::nullopt);
    EXPECT_EQ(save(budget("Ours")).keptCopy, QString());
    replace(budget("Theirs again"));
    EXPECT_EQ(save(budget("Ours again")).common->joined(), budget("Ours"));
}

TEST_F(CVSavedFileTest, keepsAStateAlsoWhereNoOtherVersionsAreKept) {
    EXPECT_EQ(mFile.keepState(textOf(mRead), 0).versionTrouble, QString());
    EXPECT_THAT(versions(), testing::ElementsAre(mRead));
}

TEST_F(CVSavedFileTest, keepsWhatStandsWhereTheUserMovesTheFileToAlsoWhenItWasReadBefore) {
    const CVSaveOutcome outcome = save(budget("Moved here"), {CVVersionReason::Move, 0});
    EXPECT_TRUE(outcome.message.isEmpty()) << outcome.message.toStdString();
    EXPECT_EQ(outcome.keptReason, CVKeptReason::ReplacedWhenMoved);
    EXPECT_EQ(readFile(outcome.keptCopy), mRead);
    EXPECT_EQ(readFile(mPath), budget("Moved here"));
}

TEST_F(CVSavedFileTest, tellsThatASaveWhichWaitedCanBeTriedAgain) {
    EXPECT_EQ(look(), std::nullopt);
    replace("half");
    EXPECT_TRUE(save(budget("Mine")).awaitsReadable);
    replace(mRead);
    const auto change = look();
    EXPECT_TRUE(change == Kind::AsKnown || change == Kind::Changed);
}

TEST_F(CVSavedFileTest, noticesTheNextChangeAlthoughAnEarlierOneIsTakenOver) {
    replace(budget("Theirs"));
    const auto change = mFile.look();
    ASSERT_TRUE(change);
    replace(budget("Theirs, later"));
    mFile.accept(change->signature, change->partly.readAs());
    EXPECT_EQ(look(), Kind::Changed);
}

TEST_F(CVSavedFileTest, tellsThatAFileCannotBeReadOnlyWhenItHasStayedAsItIs) {
    EXPECT_EQ(look(), std::nullopt);
    replace(mRead.first(mRead.size() / 2));
    EXPECT_EQ(look(), std::nullopt);
    setMode(mPath, 0640);
    EXPECT_EQ(look(), std::nullopt) << "somebody is still at it";
    EXPECT_EQ(look(), Kind::Unreadable);
}

TEST_F(CVSavedFileTest, keepsWhatCannotBeReadWhereItHasNeitherReadNorWrittenAFile) {
    ASSERT_TRUE(QFile::remove(mPath));
    CVSavedFile fresh(mPath);
    EXPECT_FALSE(fresh.look());
    writeFile(mPath, "half");
    const CVSaveOutcome outcome = fresh.save(textOf(budget("Mine")), {}, CVUnreadableFile::AwaitedIfWatched);
    EXPECT_FALSE(outcome.awaitsReadable);
    EXPECT_EQ(readFile(outcome.keptCopy), "half");
    EXPECT_FALSE(outcome.keptIsBudget);
    EXPECT_EQ(readFile(mPath), budget("Mine"));
}

TEST_F(CVSavedFileTest, writesAWatchedFileAnewThatIsGone) {
    EXPECT_EQ(look(), std::nullopt);
    ASSERT_TRUE(QFile::remove(mPath));
    const CVSaveOutcome outcome = save(budget("Mine"));
    EXPECT_EQ(outcome.message, QString());
    EXPECT_EQ(outcome.keptCopy, QString());
    EXPECT_EQ(readFile(mPath), budget("Mine"));
}

TEST_F(CVSavedFileTest, waitsForNothingWhereTheUserMovesTheFileTo) {
    EXPECT_EQ(look(), std::nullopt);
    replace("half");
    const CVSaveOutcome outcome = save(budget("Moved here"), {CVVersionReason::Move, 0});
    EXPECT_EQ(outcome.message, QString());
    EXPECT_EQ(outcome.keptReason, CVKeptReason::ReplacedWhenMoved);
    EXPECT_EQ(readFile(outcome.keptCopy), "half");
}

TEST_F(CVSavedFileTest, handsOnNoCommonStateWithWhatTheUserReplaces) {
    EXPECT_TRUE(save(budget("Common")).message.isEmpty());
    const CVSaveOutcome outcome = save(budget("Moved here"), {CVVersionReason::Move, kLimit});
    EXPECT_EQ(readFile(outcome.keptCopy), budget("Common"));
    EXPECT_FALSE(outcome.common);
}

TEST_F(CVSavedFileTest, keepsAFileThatWasReadInPartAndTakesItForNobodysChange) {
    mFile.markAsRead(*CVFileSignature::of(mPath), CVReadAs::Partly);
    const CVSaveOutcome outcome = save(budget("Mine"), {CVVersionReason::Removal, kLimit});
    EXPECT_EQ(outcome.keptReason, CVKeptReason::AsItWasRead);
    EXPECT_EQ(readFile(outcome.keptCopy), mRead);
    EXPECT_FALSE(outcome.common);
    EXPECT_TRUE(versions().isEmpty());
}

TEST_F(CVSavedFileTest, handsOnTheCommonStateWithWhatCannotBeRead) {
    EXPECT_TRUE(save(budget("Common")).message.isEmpty());
    EXPECT_EQ(look(), std::nullopt);
    replace("half");
    const CVSaveOutcome outcome = save(budget("Mine"), {{}, kLimit}, CVUnreadableFile::Replaced);
    EXPECT_EQ(outcome.keptReason, CVKeptReason::Unreadable);
    ASSERT_TRUE(outcome.common);
    EXPECT_EQ(outcome.common->joined(), budget("Common"));
    EXPECT_FALSE(outcome.keptIsBudget);
}

TEST_F(CVSavedFileTest, knowsTheBytesOfAFileThatItReadOnceTheUserHasLookedAtIt) {
    // The time that the file gives the user before it reads the bytes again.
    QThread::msleep(1100);
    EXPECT_EQ(look(), std::nullopt);
    setTimes({.tv_sec = 1'000'000'000, .tv_nsec = 0});
    EXPECT_EQ(look(), std::nullopt) << "a touch is no change";
    replace(budget("Theirs"));
    EXPECT_EQ(save(budget("Ours")).common->joined(), mRead);
}

TEST_F(CVSavedFileTest, keepsVersionsAlsoAfterTheClockWasSetBack) {
    const QDateTime now = QDateTime::currentDateTime();
    const CVVersionFolder folder(mPath);
    EXPECT_TRUE(folder.keepCopy(mPath, CVVersionReason::Hourly, now.addDays(1)).ok());
    EXPECT_TRUE(folder.keepCopy(mPath, CVVersionReason::Hourly, now.addDays(-1)).ok());
    EXPECT_TRUE(folder.keepCopy(mPath, CVVersionReason::Hourly, now.addDays(-2)).ok());
    EXPECT_EQ(save(budget("Mine"), {{}, kLimit}).versionTrouble, QString());
    EXPECT_EQ(versions().size(), 4);
}

} // namespace
