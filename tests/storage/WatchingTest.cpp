#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVDocumentXML.h"
#include "storage/CVSaveQueue.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

QByteArray budgetOf(const QString& category) {
    BudgetBuilder budget;
    budget.category(category, 1).lastID(1);
    return CVDocumentXMLRepresentation(budget.document()).joined();
}

/// A queue that watches a file which this program has read, and what the queue tells.
class Watching : public testing::Test {
protected:
    Watching() {
        writeFile(mPath, budgetOf("Ours"));
        mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
        QObject::connect(&mQueue, &CVSaveQueue::changedOutside, &mContext,
                         [this](const CVOutsideChange& change) { mChanges.append(change); });
        QObject::connect(&mQueue, &CVSaveQueue::stateKept, &mContext,
                         [this](const CVSaveOutcome& outcome) { mKept.append(outcome); });
    }

    static void replace(const QString& path, const QByteArray& bytes) {
        writeFile(path + ".new", bytes);
        ASSERT_EQ(std::rename(QFile::encodeName(path + ".new").constData(), QFile::encodeName(path).constData()), 0);
    }
    template <typename Condition>
    [[nodiscard]] static bool waitFor(Condition condition) {
        const QDeadlineTimer deadline(20'000);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return condition();
    }

    ScratchHome mHome;
    QString mPath = mHome.path(QStringLiteral("Data.corvella"));
    CVSaveQueue mQueue;
    QObject mContext;
    QList<CVOutsideChange> mChanges;
    QList<CVSaveOutcome> mKept;
};

TEST_F(Watching, tellsWhatAnotherProgramHasPutThereAndTakesItForRead) {
    mQueue.watch(mPath);
    replace(mPath, budgetOf("Theirs"));
    ASSERT_TRUE(waitFor([this] { return !mChanges.isEmpty(); }));
    EXPECT_EQ(mChanges[0].kind, CVOutsideChange::Kind::Changed);
    EXPECT_EQ((*mChanges[0].budget)->categories()[0]->categoryName(), "Theirs");
    mQueue.accept(mChanges[0]);
    mQueue.save(mPath, textOf(budgetOf("Both")));
    const CVSaveOutcome outcome = mQueue.waitForFinished();
    EXPECT_TRUE(outcome.saved);
    EXPECT_EQ(outcome.keptCopy, QString());
    EXPECT_TRUE(waitFor([this] { return mQueue.isSettled(); }));
    EXPECT_EQ(mChanges.size(), 1);
}

TEST_F(Watching, tellsNothingOfItsOwnSaves) {
    mQueue.watch(mPath);
    for (const char* const name : {"One", "Two", "Three"}) {
        mQueue.save(mPath, textOf(budgetOf(name)));
        EXPECT_TRUE(waitFor([this] { return mQueue.isSettled(); }));
        EXPECT_TRUE(mQueue.waitUntilIdle(std::chrono::seconds(20)));
    }
    replace(mPath, budgetOf("Theirs"));
    ASSERT_TRUE(waitFor([this] { return !mChanges.isEmpty(); }));
    EXPECT_EQ((*mChanges[0].budget)->categories()[0]->categoryName(), "Theirs");
}

TEST_F(Watching, tellsEachChange) {
    mQueue.watch(mPath);
    for (const char* const name : {"One", "Two", "Three"}) {
        replace(mPath, budgetOf(name));
        ASSERT_TRUE(waitFor([this, name] {
            return !mChanges.isEmpty() && (*mChanges.last().budget)->categories()[0]->categoryName() == name;
        })) << name;
    }
    EXPECT_EQ(mChanges.size(), 3);
}

TEST_F(Watching, keepsWhatIsNotTakenOver) {
    mQueue.watch(mPath);
    replace(mPath, budgetOf("Theirs"));
    ASSERT_TRUE(waitFor([this] { return !mChanges.isEmpty(); }));
    mQueue.save(mPath, textOf(budgetOf("Ours again")));
    EXPECT_EQ(readFile(mQueue.waitForFinished().keptCopy), budgetOf("Theirs"));
}

TEST_F(Watching, keepsAStateAsAVersionAndSaysSo) {
    mQueue.keepState(mPath, textOf(budgetOf("Shown")), 1'000'000);
    EXPECT_FALSE(mQueue.isSettled());
    ASSERT_TRUE(waitFor([this] { return !mKept.isEmpty(); }));
    EXPECT_EQ(mKept[0].versionTrouble, QString());
    EXPECT_TRUE(mQueue.isSettled());
    const QList<CVVersion> versions = CVVersionFolder(mPath).versions();
    ASSERT_EQ(versions.size(), 1);
    EXPECT_EQ(readFile(versions[0].path), budgetOf("Shown"));
    EXPECT_TRUE(mQueue.waitForFinished().saved) << "it is no save";
}

TEST_F(Watching, saysWhyAStateCouldNotBeKept) {
    writeFile(CVVersionFolder(mPath).path(), "a file in the way");
    mQueue.keepState(mPath, textOf(budgetOf("Shown")), 1'000'000);
    ASSERT_TRUE(waitFor([this] { return !mKept.isEmpty(); }));
    EXPECT_TRUE(mKept[0].versionTrouble.startsWith("An earlier version could not be kept in “"))
        << mKept[0].versionTrouble.toStdString();
}

TEST_F(Watching, tellsOnlyOfTheFileThatWasNamedLast) {
    const QString other = mHome.path(QStringLiteral("Elsewhere/Other.corvella"));
    writeFile(other, budgetOf("Other"));
    mQueue.markAsRead(other, CVFileSignature::of(other));
    mQueue.watch(mPath);
    mQueue.watch(other);
    replace(mPath, budgetOf("Theirs"));
    replace(other, budgetOf("Their other"));
    ASSERT_TRUE(waitFor([this] { return !mChanges.isEmpty(); }));
    EXPECT_EQ(mChanges[0].path, other);
    EXPECT_TRUE(mQueue.waitUntilIdle(std::chrono::seconds(20)));
}

TEST_F(Watching, endsWithAnEmptyPath) {
    mQueue.watch(mPath);
    mQueue.watch({});
    EXPECT_TRUE(mQueue.waitUntilIdle(std::chrono::seconds(20)));
    replace(mPath, budgetOf("Theirs"));
    mQueue.save(mPath, textOf(budgetOf("Ours again")));
    EXPECT_EQ(readFile(mQueue.waitForFinished().keptCopy), budgetOf("Theirs")) << "a save looks all the same";
    EXPECT_TRUE(waitFor([this] { return mQueue.isSettled(); }));
    EXPECT_TRUE(mChanges.isEmpty());
}

} // namespace
