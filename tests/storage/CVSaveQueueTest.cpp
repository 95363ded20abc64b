#include "storage/CVSaveQueue.h"

#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

/// Records the signals of a queue.
struct Announcements {
    explicit Announcements(CVSaveQueue& queue) {
        QObject::connect(&queue, &CVSaveQueue::saveStarted, &context, [this] { ++started; });
        QObject::connect(&queue, &CVSaveQueue::saveFinished, &context, [this](const CVSaveOutcome& outcome) {
            finished.push_back(outcome);
            onOwnThread = onOwnThread && QThread::currentThread() == context.thread();
        });
    }

    int started = 0;
    std::vector<CVSaveOutcome> finished;
    bool onOwnThread = true;
    QObject context;
};

class CVSaveQueueTest : public testing::Test {
protected:
    CVSaveQueueTest() { QDir().mkpath(mFolder); }

    CVSaveOutcome saveAndWait(const QByteArray& bytes) {
        mQueue.save(mPath, textOf(bytes));
        return mQueue.waitForFinished();
    }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/Data.corvella");
    CVSaveQueue mQueue;
    Announcements mAnnouncements{mQueue};
};

TEST_F(CVSaveQueueTest, writesATextAndSaysSo) {
    mQueue.save(mPath, textOf("text"));
    EXPECT_EQ(mAnnouncements.started, 1);
    const CVSaveOutcome outcome = mQueue.waitForFinished();
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(outcome.path, mPath);
    EXPECT_EQ(outcome.message, QString());
    EXPECT_EQ(outcome.keptCopy, QString());
    EXPECT_EQ(readFile(mPath), "text");

    QCoreApplication::processEvents();
    ASSERT_EQ(mAnnouncements.finished.size(), 1U);
    EXPECT_TRUE(mAnnouncements.finished[0].saved);
    EXPECT_EQ(mAnnouncements.finished[0].path, mPath);
    EXPECT_TRUE(mAnnouncements.onOwnThread);
}

TEST_F(CVSaveQueueTest, isIdleBeforeAndAfter) {
    EXPECT_FALSE(mQueue.isSaving());
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    saveAndWait("text");
    EXPECT_FALSE(mQueue.isSaving());
    EXPECT_TRUE(mQueue.waitForFinished().saved);
}

TEST_F(CVSaveQueueTest, saysWhyItKeepsAFile) {
    struct Row {
        const char* behaviour;
        /// Whether the file was found unreadable, and whether another one has taken its place since.
        bool wasUnreadable;
        bool isAnother;
        std::optional<CVVersionReason> asked;
        CVKeptReason reason;
        const char* begin;
    };
    const Row rows[] = {
        {"found unreadable", true, false, {}, CVKeptReason::Unreadable, "Data (unreadable "},
        {"changed since it was found unreadable",
         true,
         true,
         {},
         CVKeptReason::ChangedOutside,
         "Data (changed outside "},
        {"never read", false, false, CVVersionReason::Removal, CVKeptReason::ChangedOutside, "Data (changed outside "},
        {"in the place to which the data file moves", false, false, CVVersionReason::Move,
         CVKeptReason::ReplacedWhenMoved, "Data (replaced when moved "},
        {"found unreadable in that place", true, false, CVVersionReason::Move, CVKeptReason::ReplacedWhenMoved,
         "Data (replaced when moved "}};
    int number = 0;
    for (const Row& row : rows) {
        mPath = mHome.path(QStringLiteral("%1/Data.corvella").arg(++number));
        writeFile(mPath, "somebody's");
        if (row.wasUnreadable)
            mQueue.markAsUnreadable(mPath, CVFileSignature::of(mPath));
        if (row.isAnother)
            writeFile(mPath, "of another length");
        const QByteArray before = readFile(mPath);
        mQueue.save(mPath, textOf("text"), {row.asked, 0});
        const CVSaveOutcome outcome = mQueue.waitForFinished();
        EXPECT_EQ(outcome.keptReason, row.reason) << row.behaviour;
        EXPECT_TRUE(QFileInfo(outcome.keptCopy).fileName().startsWith(QLatin1String(row.begin))) << row.behaviour;
        EXPECT_EQ(readFile(outcome.keptCopy), before) << row.behaviour;
    }
}

TEST_F(CVSaveQueueTest, keepsAFileThatItDoesNotKnow) {
    writeFile(mPath, "somebody's");
    const CVSaveOutcome outcome = saveAndWait("text");
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(readFile(mPath), "text");
    EXPECT_THAT(QFileInfo(outcome.keptCopy).fileName().toStdString(),
                testing::MatchesRegex("Data \\(changed outside [0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{6}\\)\\.corvella"));
    EXPECT_EQ(readFile(outcome.keptCopy), "somebody's");
}

TEST_F(CVSaveQueueTest, keepsAFileOnlyOnce) {
    writeFile(mPath, "somebody's");
    saveAndWait("first");
    EXPECT_EQ(saveAndWait("second").keptCopy, QString());
    EXPECT_EQ(saveAndWait("third").keptCopy, QString());
    EXPECT_EQ(readFile(mPath), "third");
    EXPECT_EQ(namesIn(mFolder).size(), 2);
}

TEST_F(CVSaveQueueTest, keepsNoFileThatWasRead) {
    writeFile(mPath, "read");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    EXPECT_EQ(saveAndWait("text").keptCopy, QString());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella"}));
}

TEST_F(CVSaveQueueTest, keepsNoFileThatItMadeItself) {
    saveAndWait("first");
    EXPECT_EQ(saveAndWait("second").keptCopy, QString());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella"}));
}

TEST_F(CVSaveQueueTest, keepsAFileThatAppearedAfterASaveFailed) {
    mPath = mHome.path(QStringLiteral("Unplugged/Data.corvella"));
    EXPECT_FALSE(saveAndWait("first").saved);
    QDir().mkpath(QFileInfo(mPath).path());
    writeFile(mPath, "years of somebody's");
    const CVSaveOutcome outcome = saveAndWait("second");
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(readFile(outcome.keptCopy), "years of somebody's");
    EXPECT_EQ(readFile(mPath), "second");
}

TEST_F(CVSaveQueueTest, keepsAFileThatSomebodyElseChangedSinceTheLastSave) {
    saveAndWait("first");
    writeFile(mPath, "changed elsewhere");
    const CVSaveOutcome outcome = saveAndWait("second");
    EXPECT_EQ(readFile(outcome.keptCopy), "changed elsewhere");
    EXPECT_EQ(readFile(mPath), "second");
    EXPECT_EQ(saveAndWait("third").keptCopy, QString());
}

TEST_F(CVSaveQueueTest, writesToEachFileThoughRequestsAreMerged) {
    const QString other = mFolder + "/Other.corvella";
    for (int number = 0; number < 20; ++number) {
        mQueue.save(mPath, textOf(QByteArray::number(number)));
        mQueue.save(other, textOf(QByteArray::number(number)));
    }
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "19");
    EXPECT_EQ(readFile(other), "19");
}

TEST_F(CVSaveQueueTest, aFailureOutlastsTheEarlierSaveThatIsStillUnderWay) {
    for (int round = 0; round < 50; ++round) {
        mQueue.save(mPath, textOf("text"));
        mQueue.fail(QStringLiteral("no folder"));
        EXPECT_EQ(mQueue.waitForFinished().message, "no folder");
    }
}

TEST_F(CVSaveQueueTest, keepsTheUnknownFileOfEachPath) {
    const QString other = mFolder + "/Other.corvella";
    writeFile(mPath, "one");
    writeFile(other, "two");
    const QString first = saveAndWait("text").keptCopy;
    mQueue.save(other, textOf("text"));
    const QString second = mQueue.waitForFinished().keptCopy;
    EXPECT_EQ(readFile(first), "one");
    EXPECT_EQ(readFile(second), "two");
}

TEST_F(CVSaveQueueTest, writesNothingOverWhatItCannotKeep) {
    // Nobody can create a file in this read-only file system.
    mPath = QStringLiteral("/proc/self/comm");
    const QByteArray before = readFile(mPath);
    const CVSaveOutcome outcome = saveAndWait("text");
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.keptCopy, QString());
    EXPECT_TRUE(outcome.message.startsWith(
        QStringLiteral("The budget could not be saved to “/proc/self/comm”: what stands at “/proc/")))
        << outcome.message.toStdString();
    EXPECT_EQ(readFile(mPath), before);
}

TEST_F(CVSaveQueueTest, saysWhatFailedAndWhere) {
    mPath = mHome.path(QStringLiteral("None/Data.corvella"));
    const CVSaveOutcome outcome = saveAndWait("text");
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.path, mPath);
    EXPECT_EQ(outcome.message, "The budget could not be saved to “" + mPath + "”: No such file or directory.");
    EXPECT_EQ(mQueue.waitForFinished().message, outcome.message);
}

TEST_F(CVSaveQueueTest, triesAgainAfterAFailure) {
    mPath = mHome.path(QStringLiteral("None/Data.corvella"));
    EXPECT_FALSE(saveAndWait("first").saved);
    QDir().mkpath(QFileInfo(mPath).path());
    const CVSaveOutcome outcome = saveAndWait("second");
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(outcome.message, QString());
    EXPECT_EQ(readFile(mPath), "second");

    QCoreApplication::processEvents();
    ASSERT_EQ(mAnnouncements.finished.size(), 2U);
    EXPECT_FALSE(mAnnouncements.finished[0].saved);
    EXPECT_TRUE(mAnnouncements.finished[1].saved);
}

TEST_F(CVSaveQueueTest, announcesAFailureThatCameBeforeAnyWriting) {
    mQueue.fail(QStringLiteral("no folder"));
    EXPECT_FALSE(mQueue.waitForFinished().saved);
    EXPECT_EQ(mQueue.waitForFinished().message, "no folder");
    QCoreApplication::processEvents();
    ASSERT_EQ(mAnnouncements.finished.size(), 1U);
    EXPECT_FALSE(mAnnouncements.finished[0].saved);
    EXPECT_EQ(mAnnouncements.finished[0].message, "no folder");
}

/// A text with a different length for each number, so that a mixture of two texts is noticed.
QByteArray numbered(int number) {
    return (QByteArray::number(number) + ' ').repeated(1 + number * 37 % 5000);
}

/// The number of a text made by numbered(); -1 for any other text.
int numberOf(const QByteArray& bytes) {
    const int number = bytes.left(bytes.indexOf(' ')).toInt();
    return bytes == numbered(number) ? number : -1;
}

TEST_F(CVSaveQueueTest, neverShowsAnOlderTextAfterANewerNorHalfOfOne) {
    constexpr int kRequests = 400;
    saveAndWait(numbered(0));
    std::atomic<bool> stop = false;
    std::atomic<int> faults = 0;
    std::atomic<int> looks = 0;
    const std::string path = mPath.toStdString();
    std::thread reader([&] {
        int newest = 0;
        while (!stop) {
            const int number = numberOf(readFile(QString::fromStdString(path)));
            if (number < newest)
                ++faults;
            newest = number;
            ++looks;
        }
    });
    for (int number = 1; number <= kRequests; ++number) {
        mQueue.save(mPath, textOf(numbered(number)));
        if (number % 7 == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    stop = true;
    reader.join();
    EXPECT_EQ(faults, 0);
    EXPECT_GT(looks, 0);
    EXPECT_EQ(numberOf(readFile(mPath)), kRequests);

    QCoreApplication::processEvents();
    EXPECT_EQ(mAnnouncements.started, kRequests + 1);
    EXPECT_GE(mAnnouncements.finished.size(), 2U);
    EXPECT_LE(mAnnouncements.finished.size(), std::size_t(kRequests + 1));
}

TEST_F(CVSaveQueueTest, waitsAtItsEndForWhatIsPending) {
    for (int round = 1; round <= 20; ++round) {
        {
            CVSaveQueue queue;
            queue.markAsRead(mPath, CVFileSignature::of(mPath));
            queue.save(mPath, textOf(numbered(round * 2 - 1)));
            queue.save(mPath, textOf(numbered(round * 2)));
        }
        EXPECT_EQ(numberOf(readFile(mPath)), round * 2);
    }
    // The pending signals of a deleted queue are lost.
    QCoreApplication::processEvents();
    EXPECT_TRUE(mAnnouncements.finished.empty());
}

/// Records what a queue says of the files beside a data file.
struct FilesBesideTold {
    explicit FilesBesideTold(CVSaveQueue& queue) {
        QObject::connect(&queue, &CVSaveQueue::filesBesideChanged, &context,
                         [this](const CVFilesBeside& files) { changed.push_back(files); });
        QObject::connect(&queue, &CVSaveQueue::filesBesideListed, &context,
                         [this](const CVFilesBeside& files) { listed.push_back(files); });
    }
    /// Waits for that many changes.
    [[nodiscard]] bool waitFor(std::size_t count) const {
        constexpr int kRounds = 2000;
        for (int round = 0; round < kRounds && changed.size() < count; ++round) {
            QCoreApplication::processEvents();
            QThread::msleep(10);
        }
        return changed.size() == count;
    }

    std::vector<CVFilesBeside> changed;
    std::vector<CVFilesBeside> listed;
    QObject context;
};

TEST_F(CVSaveQueueTest, saysWhatLiesBesideTheWatchedFileAtFirstAndWhenThatChanges) {
    saveAndWait("text");
    const FilesBesideTold told(mQueue);
    mQueue.watch(mPath);
    ASSERT_TRUE(told.waitFor(1));
    EXPECT_EQ(told.changed[0], CVFilesBeside::of(mPath));
    EXPECT_TRUE(told.changed[0].conflictCopies.isEmpty());
    writeFile(mFolder + "/Data (conflicted copy 2014-03-07).corvella", "text");
    ASSERT_TRUE(told.waitFor(2));
    EXPECT_EQ(told.changed[1].conflictCopies.size(), 1);
    EXPECT_TRUE(told.listed.empty()) << "nobody has asked";
}

TEST_F(CVSaveQueueTest, listsWhatLiesBesideAnyFileAfterTheSavesThatCameBefore) {
    writeFile(mPath, "somebody's");
    const FilesBesideTold told(mQueue);
    mQueue.save(mPath, textOf("text"));
    mQueue.listFilesBeside(mPath);
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    QCoreApplication::processEvents();
    ASSERT_EQ(told.listed.size(), 1U);
    EXPECT_EQ(told.listed[0].changedOutside.size(), 1);
    EXPECT_EQ(told.listed[0], CVFilesBeside::of(mPath));
    EXPECT_TRUE(told.changed.empty());
}

TEST_F(CVSaveQueueTest, needsNoWorkToEnd) {
    const CVSaveQueue queue;
    EXPECT_FALSE(queue.isSaving());
}

} // namespace
