#include "lock/CVLockHolder.h"

#include "kit/Printers.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

using namespace std::chrono_literals;

constexpr auto kWithoutClock = std::nullopt;

CVLockHolder ownHolder() {
    return {"desk", "anna", "m1", "b1", 100, 5000, "pid:[1]", "own"};
}

CVLockHolder otherHolder(void (*change)(CVLockHolder& holder) = [](CVLockHolder&) {}) {
    CVLockHolder holder{"desk", "ben", "m1", "b1", 200, 6000, "pid:[1]", "others"};
    change(holder);
    return holder;
}

struct JudgeRow {
    const char* name;
    std::optional<CVLockHolder> holder;
    CVProcessState process;
    std::optional<std::chrono::seconds> age;
    CVLockState state;
};

void onLaptop(CVLockHolder& holder) {
    holder.host = "laptop";
    holder.machine = "m2";
    holder.boot = "b2";
}

const JudgeRow kJudgedLocks[]{
    {"own, however old", ownHolder(), CVProcessState::Lives, 2h, CVLockState::Own},
    {"own without a clock", ownHolder(), CVProcessState::Unknown, kWithoutClock, CVLockState::Own},
    {"here and alive", otherHolder(), CVProcessState::Lives, 0s, CVLockState::Alive},
    {"here and alive after a long sleep", otherHolder(), CVProcessState::Lives, 2h, CVLockState::Alive},
    {"here and alive without a clock", otherHolder(), CVProcessState::Lives, kWithoutClock, CVLockState::Alive},
    {"here and gone, however fresh", otherHolder(), CVProcessState::Gone, 0s, CVLockState::Dead},
    {"here and gone without a clock", otherHolder(), CVProcessState::Gone, kWithoutClock, CVLockState::Dead},
    {"here, hidden and fresh", otherHolder(), CVProcessState::Unknown, 4min, CVLockState::Alive},
    {"here, hidden and old", otherHolder(), CVProcessState::Unknown, 301s, CVLockState::Stale},
    {"here, before this start", otherHolder([](CVLockHolder& h) { h.boot = "b0"; }), CVProcessState::Lives, 0s,
     CVLockState::Dead},
    {"here, without the ID of a start", otherHolder([](CVLockHolder& h) { h.boot = ""; }), CVProcessState::Gone, 0s,
     CVLockState::Alive},
    {"in a container here and fresh", otherHolder([](CVLockHolder& h) { h.processes = "pid:[2]"; }),
     CVProcessState::Gone, 1min, CVLockState::Alive},
    {"in a container here and old", otherHolder([](CVLockHolder& h) { h.processes = "pid:[2]"; }),
     CVProcessState::Lives, 6min, CVLockState::Stale},
    {"another computer of the same name", otherHolder([](CVLockHolder& h) {
         h.machine = "m2";
         h.boot = "b2";
     }),
     CVProcessState::Gone, 1min, CVLockState::Alive},
    {"elsewhere and fresh", otherHolder(onLaptop), CVProcessState::Gone, 0s, CVLockState::Alive},
    {"elsewhere at five minutes", otherHolder(onLaptop), CVProcessState::Lives, 300s, CVLockState::Alive},
    {"elsewhere after five minutes", otherHolder(onLaptop), CVProcessState::Lives, 301s, CVLockState::Stale},
    {"onLaptop, a little ahead", otherHolder(onLaptop), CVProcessState::Gone, -2s, CVLockState::Alive},
    {"onLaptop, of the future", otherHolder(onLaptop), CVProcessState::Gone, -301s, CVLockState::Unknown},
    {"elsewhere without a clock", otherHolder(onLaptop), CVProcessState::Gone, kWithoutClock, CVLockState::Unknown},
    {"not readable and fresh", std::nullopt, CVProcessState::Unknown, 10s, CVLockState::Unknown},
    {"not readable and old", std::nullopt, CVProcessState::Unknown, 301s, CVLockState::Stale},
    {"not readable without a clock", std::nullopt, CVProcessState::Unknown, kWithoutClock, CVLockState::Unknown},
};

TEST(CVLockHolder, IsJudgedByItsProcessOnThisMachineAndByItsSignOfLifeElsewhere) {
    for (const JudgeRow& row : kJudgedLocks)
        EXPECT_EQ(CVJudgeLock(row.holder, ownHolder(), row.process, row.age), row.state) << row.name;
}

TEST(CVLockHolder, ComesBackFromItsBytes) {
    EXPECT_EQ(CVLockHolder::parse(otherHolder().render()), otherHolder());
    const CVLockHolder present = CVLockHolder::ofThisProcess();
    EXPECT_EQ(CVLockHolder::parse(present.render()), present);
    EXPECT_EQ(otherHolder().render(),
              "Corvella lock\nprocess 200\nstarted 6000\nhost desk\nuser ben\nmachine m1\nboot b1\n"
              "processes pid:[1]\ntoken others\n");
}

TEST(CVLockHolder, OfThisProcessIsAliveAndItsTokenUnique) {
    const CVLockHolder present = CVLockHolder::ofThisProcess();
    EXPECT_EQ(present.process, ::getpid());
    EXPECT_FALSE(present.host.isEmpty() || present.user.isEmpty() || present.boot.isEmpty());
    EXPECT_EQ(CVLookAtProcess(present.process, present.started), CVProcessState::Lives);
    EXPECT_NE(present.token, CVLockHolder::ofThisProcess().token);
}

TEST(CVLockHolder, WhatIsNoLockIsNone) {
    const QByteArray good = otherHolder().render();
    ASSERT_TRUE(CVLockHolder::parse(good));
    // Every part of a lock is no lock: a disk may have been full.
    for (qsizetype size = 0; size < good.size(); ++size)
        EXPECT_FALSE(CVLockHolder::parse(good.first(size))) << size;
    EXPECT_FALSE(CVLockHolder::parse("Corvella lock\nhost desk\nprocess 1\n"));
    EXPECT_FALSE(CVLockHolder::parse("Corvella lock\nhost desk\nprocess x\ntoken t\n"));
    EXPECT_FALSE(CVLockHolder::parse("lock\nhost desk\nprocess 1\ntoken t\n"));
    EXPECT_FALSE(CVLockHolder::parse(good + "more " + QByteArray(5000, 'x') + "\n"));
    EXPECT_FALSE(CVLockHolder::parse(QByteArray(good).replace("ben", "b\xff\xfe")));
}

TEST(CVLockHolder, LinesOfLaterProgramsArePassedOver) {
    EXPECT_EQ(CVLockHolder::parse(otherHolder().render() + "mood good\n"), otherHolder());
}

TEST(CVLockHolder, TextsThatAreShownHoldNothingInvisibleAndAreShort) {
    QByteArray bytes = otherHolder().render();
    bytes.replace("ben", "b\r\x1b[31m\u202een" + QByteArray(500, 'x'));
    const auto holder = CVLockHolder::parse(bytes);
    ASSERT_TRUE(holder);
    EXPECT_TRUE(holder->user.startsWith("b[31men"));
    EXPECT_EQ(holder->user.size(), 80);
}

TEST(CVLockHolder, AProcessIsGoneWhenItHasEndedAlsoBeforeItsParentKnowsAndWhenItsNumberIsAnothersNow) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::pause();
        ::_exit(0);
    }
    EXPECT_EQ(CVLookAtProcess(child, 1), CVProcessState::Gone) << "started at another time";
    EXPECT_EQ(CVLookAtProcess(child, 0), CVProcessState::Unknown);
    ::kill(child, SIGKILL);
    siginfo_t ended{};
    ::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT);
    QFile stat(QStringLiteral("/proc/%1/stat").arg(child));
    ASSERT_TRUE(stat.open(QIODevice::ReadOnly));
    const QByteArray line = stat.readAll();
    const quint64 started = line.mid(line.lastIndexOf(')') + 2).split(' ').value(19).toULongLong();
    ASSERT_GT(started, 0U);
    EXPECT_EQ(CVLookAtProcess(child, started), CVProcessState::Gone) << "its parent does not know yet";
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(CVLookAtProcess(child, started), CVProcessState::Gone);
    EXPECT_EQ(CVLookAtProcess(-1, 1), CVProcessState::Gone);
}

} // namespace
