#include "base/CVLatestWork.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <future>

namespace {

/// Runs the event loop until something was told.
bool waitUntil(const std::function<bool()>& isTold) {
    const QDeadlineTimer patience(std::chrono::seconds(20));
    while (!isTold() && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return isTold();
}

TEST(CVLatestWorkTest, WorksOnAnotherThreadAndTellsOnThisOne) {
    CVLatestWork work;
    const QThread* worker = nullptr;
    const QThread* teller = nullptr;
    work.start([&](const CVLatestWork::IsWanted& isWanted) -> CVLatestWork::Told {
        EXPECT_TRUE(isWanted());
        worker = QThread::currentThread();
        return [&teller] { teller = QThread::currentThread(); };
    });
    ASSERT_TRUE(waitUntil([&teller] { return teller != nullptr; }));
    EXPECT_EQ(teller, QThread::currentThread());
    EXPECT_NE(worker, teller);
}

TEST(CVLatestWorkTest, NewerWorkCancelsOlderWorkWhichTellsNothing) {
    CVLatestWork work;
    QStringList told;
    std::promise<void> begun;
    work.start([&](const CVLatestWork::IsWanted& isWanted) -> CVLatestWork::Told {
        begun.set_value();
        while (isWanted())
            QThread::yieldCurrentThread();
        return [&told] { told.append("older"); };
    });
    begun.get_future().wait();
    work.start([&](const CVLatestWork::IsWanted&) -> CVLatestWork::Told { return [&told] { told.append("newer"); }; });
    ASSERT_TRUE(waitUntil([&told] { return !told.isEmpty(); }));
    EXPECT_EQ(told, QStringList{"newer"});
}

TEST(CVLatestWorkTest, DestroyingItCancelsTheWorkAndTellsNothing) {
    bool isTold = false;
    std::promise<void> begun;
    auto work = std::make_unique<CVLatestWork>();
    work->start([&](const CVLatestWork::IsWanted& isWanted) -> CVLatestWork::Told {
        begun.set_value();
        while (isWanted())
            QThread::yieldCurrentThread();
        return [&isTold] { isTold = true; };
    });
    begun.get_future().wait();
    work.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isTold);
}

} // namespace
