#include "kit/ScratchHome.h"
#include "storage/CVSaveQueue.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchFiles.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

namespace {

/// A save queue whose worker is blocked in the middle of its first write.
class SaveOrder : public testing::Test {
protected:
    SaveOrder() {
        QObject::connect(&mQueue, &CVSaveQueue::saveFinished, &mContext, [this] { ++mFinished; });
        FaultyCalls::arm(mHome.path(), {});
    }
    ~SaveOrder() override { FaultyCalls::disarm(); }

    void save(const char* text) { mQueue.save(mPath, textOf(text)); }
    /// "fsync" and "rename", each with "file" or "folder", in the order of the calls.
    [[nodiscard]] QStringList steps() const {
        QStringList steps;
        for (const auto& call : FaultyCalls::disarm().calls) {
            if (call.name == "fsync" || call.name == "rename")
                steps.append(QString::fromStdString(call.name) +
                             (call.path == mHome.path().toStdString() ? " folder" : " file"));
        }
        return steps;
    }

    ScratchHome mHome;
    QString mPath = mHome.path(QStringLiteral("Data.corvella"));
    CVSaveQueue mQueue;
    QObject mContext;
    int mFinished = 0;
};

TEST_F(SaveOrder, mergesTheRequestsThatArriveDuringAWrite) {
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("first");
    FaultyCalls::Gate::waitForArrival();
    save("second");
    save("third");
    save("fourth");
    EXPECT_TRUE(mQueue.isSaving());
    EXPECT_TRUE(readFile(mPath).isNull());
    gate.reset();
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "fourth");
    EXPECT_EQ(steps().count(QStringLiteral("fsync file")), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(mFinished, 2);
}

TEST_F(SaveOrder, showsTheOldFileUntilTheNewOneIsWhole) {
    writeFile(mPath, "old");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("new");
    FaultyCalls::Gate::waitForArrival();
    EXPECT_EQ(readFile(mPath), "old");
    gate.reset();
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "new");
}

TEST_F(SaveOrder, goesOnWithTheNextRequestAfterAFailure) {
    FaultyCalls::disarm();
    FaultyCalls::arm(mHome.path(), {}, {{"rename", EIO}});
    auto gate = std::make_unique<FaultyCalls::Gate>("fsync");
    save("first");
    FaultyCalls::Gate::waitForArrival();
    save("second");
    gate.reset();
    EXPECT_FALSE(mQueue.waitForFinished().saved);
    QCoreApplication::processEvents();
    EXPECT_EQ(mFinished, 2);
    FaultyCalls::disarm();
    save("third");
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(readFile(mPath), "third");
}

TEST_F(SaveOrder, syncsTheFileBeforeItTakesItsPlaceAndTheFolderAfterwards) {
    writeFile(mPath, "old");
    mQueue.markAsRead(mPath, CVFileSignature::of(mPath));
    save("text");
    EXPECT_TRUE(mQueue.waitForFinished().saved);
    EXPECT_EQ(steps(), QStringList({"fsync file", "rename file", "fsync folder"}));
}

} // namespace
