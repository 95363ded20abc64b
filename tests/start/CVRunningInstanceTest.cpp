#include "start/CVRunningInstance.h"

#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QSysInfo>
#include <QTest>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <future>

namespace {

using Outcome = CVRunningInstance::Outcome;
using namespace std::chrono_literals;

class CVRunningInstanceTest : public testing::Test {
protected:
    /// The outcome of another start while this program's event loop runs.
    Outcome startAgain() const {
        auto outcome =
            std::async(std::launch::async, [this] { return CVRunningInstance(mFolder, mRuntimeFolder).claim(5s); });
        EXPECT_TRUE(QTest::qWaitFor([&outcome] { return outcome.wait_for(0s) == std::future_status::ready; }, 10'000));
        return outcome.get();
    }

    void write(const QString& name, const QByteArray& bytes) const {
        ASSERT_TRUE(QDir().mkpath(mFolder));
        QFile file(mFolder + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    /// Replaces the lock by another file.
    void obstruct(void (*place)(const QString& path)) const {
        ASSERT_TRUE(QDir().mkpath(mFolder));
        place(lockPath());
    }

    /// Connects to the first instance and says something; waits for the answer or until the other hangs up.
    [[nodiscard]] QByteArray call(const QList<QByteArray>& pieces) const {
        QLocalSocket socket;
        socket.connectToServer(mFolder + "/.running");
        EXPECT_TRUE(socket.waitForConnected());
        for (const QByteArray& piece : pieces) {
            socket.write(piece);
            socket.flush();
            QCoreApplication::processEvents();
        }
        QByteArray answer;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                answer += socket.readAll();
                return answer.endsWith('\n') || socket.state() == QLocalSocket::UnconnectedState;
            },
            10'000));
        return answer;
    }

    [[nodiscard]] QString lockPath() const { return mFolder + "/.running.lock"; }

    ScratchHome mHome;
    QString mFolder = mHome.path("data/Quenby Labs/Corvella");
    /// Empty for no runtime folder.
    QString mRuntimeFolder;
};

TEST_F(CVRunningInstanceTest, TheFoldersThatItMakesAreTheUsersOwnWhateverTheUmask) {
    for (const mode_t mask : {0000U, 0022U, 0077U}) {
        const ScratchHome home;
        const mode_t previous = ::umask(mask);
        {
            CVRunningInstance running(home.path("data/Quenby Labs/Corvella"), {});
            EXPECT_EQ(running.claim(0s), Outcome::First);
        }
        ::umask(previous);
        for (const char* const folder : {"data", "data/Quenby Labs", "data/Quenby Labs/Corvella"})
            EXPECT_EQ(modeOf(home.path(folder)), 0700) << folder;
    }
}

struct Obstacle {
    const char* name;
    void (*place)(const QString& path);
};

void makeFileWith(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// Files that a crash, a copy of a home folder or a person may have left in the place of the lock.
const std::array kObstacles{
    Obstacle{"empty", [](const QString& path) { makeFileWith(path, ""); }},
    Obstacle{"garbage", [](const QString& path) { makeFileWith(path, QByteArray("\0\xff rubbish", 10)); }},
    Obstacle{"of a program that runs here", [](const QString& path) { makeFileWith(path, "1\ncorvella\nhost\n"); }},
    Obstacle{"of another machine", [](const QString& path) { makeFileWith(path, "1\ncorvella\nother\n\n\n"); }},
    Obstacle{"folder", [](const QString& path) { ASSERT_TRUE(QDir().mkpath(path)); }},
    Obstacle{"full folder", [](const QString& path) { ASSERT_TRUE(QDir().mkpath(path + "/within")); }},
    Obstacle{"link to a file",
             [](const QString& path) {
                 makeFileWith(path + ".target", "somebody's");
                 ASSERT_TRUE(QFile::link(path + ".target", path));
             }},
    Obstacle{"dangling link", [](const QString& path) { ASSERT_TRUE(QFile::link(path + ".nothing", path)); }},
    Obstacle{"cyclic link", [](const QString& path) { ASSERT_TRUE(QFile::link(path, path)); }},
    Obstacle{"pipe", [](const QString& path) { ASSERT_EQ(::mkfifo(qPrintable(path), 0600), 0); }},
};

TEST_F(CVRunningInstanceTest, TheSecondHasTheFirstShown) {
    CVRunningInstance first(mFolder);
    const QSignalSpy shown(&first, &CVRunningInstance::showRequested);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
    EXPECT_EQ(shown.size(), 2);
}

TEST_F(CVRunningInstanceTest, TheNextIsTheFirstWhenTheFirstHasEnded) {
    {
        CVRunningInstance first(mFolder);
        ASSERT_EQ(first.claim(0s), Outcome::First);
    }
    EXPECT_EQ(QDir(mFolder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
              QStringList());
    EXPECT_EQ(CVRunningInstance(mFolder).claim(0s), Outcome::First);
}

TEST_F(CVRunningInstanceTest, AProgramOfAnotherFolderIsNoOther) {
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    EXPECT_EQ(CVRunningInstance(mHome.path("elsewhere")).claim(0s), Outcome::First);
}

TEST_F(CVRunningInstanceTest, SaysInTimeThatTheOtherIsSilent) {
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    QElapsedTimer timer;
    timer.start();
    // Without an event loop the first instance does not answer.
    EXPECT_EQ(CVRunningInstance(mFolder).claim(300ms), Outcome::OtherSilent);
    EXPECT_GE(timer.elapsed(), 290);
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST_F(CVRunningInstanceTest, WaitsForOneThatIsJustEnding) {
    auto first = std::make_unique<CVRunningInstance>(mFolder);
    ASSERT_EQ(first->claim(0s), Outcome::First);
    std::atomic<bool> isWaiting = false;
    auto second = std::async(std::launch::async, [this, &isWaiting] {
        isWaiting = true;
        return CVRunningInstance(mFolder).claim(5s);
    });
    while (!isWaiting)
        std::this_thread::yield();
    first.reset();
    EXPECT_EQ(second.get(), Outcome::First);
}

TEST_F(CVRunningInstanceTest, WhatACrashLeftBehindDoesNotCount) {
    // The lock file names a process that is running.
    write("/.running.lock", QByteArray::number(QCoreApplication::applicationPid()) + "\ncorvella\n" +
                                QSysInfo::machineHostName().toUtf8());
    write("/.running", "");
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
}

TEST_F(CVRunningInstanceTest, WhateverStandsInThePlaceOfTheLockTheFirstStartsAndTheSecondHasItShown) {
    for (const bool hasRuntimeFolder : {true, false}) {
        for (const Obstacle& obstacle : kObstacles) {
            SCOPED_TRACE(testing::Message() << obstacle.name << ", runtime folder " << hasRuntimeFolder);
            mFolder = mHome.path(QString("%1 %2").arg(obstacle.name).arg(hasRuntimeFolder));
            mRuntimeFolder = hasRuntimeFolder ? mHome.path() : QString();
            obstruct(obstacle.place);
            CVRunningInstance first(mFolder, mRuntimeFolder);
            ASSERT_EQ(first.claim(0s), Outcome::First);
            EXPECT_EQ(startAgain(), Outcome::OtherShown);
        }
    }
}

TEST_F(CVRunningInstanceTest, WhateverStandsInThePlaceOfTheLockOneThatDoesNotAnswerIsNotRunOver) {
    mRuntimeFolder = mHome.path();
    for (const Obstacle& obstacle : kObstacles) {
        SCOPED_TRACE(obstacle.name);
        mFolder = mHome.path(obstacle.name);
        obstruct(obstacle.place);
        CVRunningInstance first(mFolder, mRuntimeFolder);
        ASSERT_EQ(first.claim(0s), Outcome::First);
        EXPECT_EQ(CVRunningInstance(mFolder, mRuntimeFolder).claim(10ms), Outcome::OtherSilent);
    }
}

TEST_F(CVRunningInstanceTest, ALinkInThePlaceOfTheLockIsNeitherFollowedNorRemoved) {
    mRuntimeFolder = mHome.path();
    obstruct([](const QString& path) { ASSERT_TRUE(QFile::link(path + ".nothing", path)); });
    ASSERT_EQ(CVRunningInstance(mFolder, mRuntimeFolder).claim(0s), Outcome::First);
    EXPECT_FALSE(QFile::exists(lockPath() + ".nothing"));
    EXPECT_TRUE(QFileInfo(lockPath()).isSymLink());
    EXPECT_EQ(QDir(mRuntimeFolder).entryList({"corvella-*"}, QDir::AllEntries | QDir::System), QStringList());
}

TEST_F(CVRunningInstanceTest, CanBeCalledHoweverLongThePathOfItsFolderIs) {
    mRuntimeFolder = mHome.path("run");
    ASSERT_TRUE(QDir().mkpath(mRuntimeFolder));
    const QString home = mHome.path();
    for (const int length : {90, 95, 96, 97, 98, 99, 100, 107, 108, 140, 220}) {
        SCOPED_TRACE(length);
        mFolder = home + '/' + QString(length - static_cast<int>(home.size()) - 1, 'x');
        CVRunningInstance first(mFolder, mRuntimeFolder);
        ASSERT_EQ(first.claim(0s), Outcome::First);
        EXPECT_EQ(startAgain(), Outcome::OtherShown);
    }
}

TEST_F(CVRunningInstanceTest, TwoFoldersWithLongPathsAreTwoAndALinkToOneIsTheSame) {
    mRuntimeFolder = mHome.path();
    const QString longName(150, 'x');
    mFolder = mHome.path(longName);
    CVRunningInstance first(mFolder, mRuntimeFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    EXPECT_EQ(CVRunningInstance(mFolder + 'y', mRuntimeFolder).claim(0s), Outcome::First);
    ASSERT_TRUE(QFile::link(mFolder, mHome.path("another way")));
    mFolder = mHome.path("another way");
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
}

TEST_F(CVRunningInstanceTest, OfSeveralAtOnceOneAloneIsTheFirst) {
    constexpr int kStarts = 8;
    std::atomic<int> decided = 0;
    std::vector<std::future<Outcome>> starts;
    for (int i = 0; i < kStarts; ++i)
        starts.push_back(std::async(std::launch::async, [this, &decided] {
            CVRunningInstance running(mFolder);
            const Outcome outcome = running.claim(100ms);
            // The instance lives until all starts have asked.
            for (++decided; decided < kStarts;)
                std::this_thread::yield();
            return outcome;
        }));
    int firsts = 0;
    for (auto& start : starts)
        firsts += start.get() == Outcome::First ? 1 : 0;
    EXPECT_EQ(firsts, 1);
}

TEST_F(CVRunningInstanceTest, WhereNothingCanBeLockedTheProgramStartsAllTheSame) {
    write("/a file", "");
    EXPECT_EQ(CVRunningInstance(mFolder + "/a file/below").claim(0s), Outcome::First);
}

struct CallRow {
    const char* name;
    QList<QByteArray> pieces;
    bool isShown;
};

const std::array kCalls{
    CallRow{"the request", {"show\n"}, true},           CallRow{"the request in pieces", {"s", "ho", "w\n"}, true},
    CallRow{"another word", {"quit\n"}, false},         CallRow{"the request and more", {"show\nshow\n"}, false},
    CallRow{"bytes", {QByteArray("\0\xff", 2)}, false}, CallRow{"much", {QByteArray(100'000, 's')}, false},
};

TEST_F(CVRunningInstanceTest, OneSmallMessageIsReadAndNothingElseIsAnswered) {
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    for (const CallRow& row : kCalls) {
        const QSignalSpy shown(&first, &CVRunningInstance::showRequested);
        EXPECT_EQ(call(row.pieces), row.isShown ? "shown\n" : "") << row.name;
        EXPECT_EQ(shown.size(), row.isShown ? 1 : 0) << row.name;
    }
    EXPECT_EQ(startAgain(), Outcome::OtherShown);
}

TEST_F(CVRunningInstanceTest, WhoeverTakesTooLongIsHungUpOn) {
    CVRunningInstance first(mFolder);
    first.setCallerPatience(20ms);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    const QSignalSpy shown(&first, &CVRunningInstance::showRequested);
    EXPECT_EQ(call({}), "");
    EXPECT_EQ(call({"sho"}), "");
    EXPECT_EQ(shown.size(), 0);
}

TEST_F(CVRunningInstanceTest, ManyWhoSayNothingDoNotKeepOthersOutAndDoNotPileUp) {
    CVRunningInstance first(mFolder);
    first.setCallerPatience(1h);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 60; ++i) {
        silent.push_back(std::make_unique<QLocalSocket>());
        silent.back()->connectToServer(mFolder + "/.running");
        ASSERT_TRUE(silent.back()->waitForConnected());
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(call({"show\n"}), "shown\n");
    const auto open = [&silent] {
        return std::count_if(silent.begin(), silent.end(),
                             [](const auto& socket) { return socket->state() == QLocalSocket::ConnectedState; });
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return open() <= 16; }, 10'000)) << open();
}

TEST_F(CVRunningInstanceTest, AnotherUserIsHungUpOn) {
    constexpr uid_t kNobody = 65534;
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become another user";
    CVRunningInstance first(mFolder);
    ASSERT_EQ(first.claim(0s), Outcome::First);
    const QSignalSpy shown(&first, &CVRunningInstance::showRequested);
    // The permissions of the socket would keep another user out before.
    const QByteArray socketPath = QFile::encodeName(mFolder + "/.running");
    for (QString path = mFolder + "/.running"; path.startsWith(mHome.path()); path = QFileInfo(path).path())
        ::chmod(QFile::encodeName(path).constData(), 0777);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::setuid(kNobody) != 0)
            ::_exit(3);
        const int file = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(socketPath.begin(), socketPath.end(), address.sun_path);
        if (::connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            ::_exit(2);
        std::array<char, 16> answer{};
        (void)!::write(file, "show\n", 5);
        ::_exit(::read(file, answer.data(), answer.size()) > 0 ? 1 : 0);
    }
    int status = -1;
    EXPECT_TRUE(QTest::qWaitFor([&] { return ::waitpid(child, &status, WNOHANG) == child; }, 10'000));
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(shown.size(), 0);
}

} // namespace
