#include "updates/CVUpdateCheck.h"

#include "kit/Printers.h"
#include "kit/UpdateServer.h"

#include <QSignalSpy>
#include <QSslSocket>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Manner = UpdateServer::Manner;

constexpr int kPatience = 20'000;
/// After this time a check counts as not ended.
constexpr std::chrono::milliseconds kMuchLater(10 * kPatience);
constexpr std::chrono::milliseconds kSoon(500);

class CVUpdateCheckTest : public testing::Test {
protected:
    CVUpdateCheckTest() { setLimits(kMuchLater, kMuchLater); }

    void setLimits(std::chrono::milliseconds silence, std::chrono::milliseconds total) {
        mCheck = std::make_unique<CVUpdateCheck>(CVFetchLimits{silence, total});
    }

    /// The reply from an address; null when there is none.
    QByteArray fetched(const QString& address) {
        const QSignalSpy spy(mCheck.get(), &CVUpdateCheck::finished);
        mCheck->start(QUrl(address), "Corvella/1.0");
        EXPECT_TRUE(mCheck->isRunning());
        EXPECT_TRUE(QTest::qWaitFor([&] { return spy.count() > 0; }, kPatience)) << "no end";
        EXPECT_FALSE(mCheck->isRunning());
        return spy.isEmpty() ? QByteArray("no end") : spy.constFirst().constFirst().toByteArray();
    }

    /// An address that reaches the server under another host name.
    static QString elsewhere(const UpdateServer& server) { return server.address().replace("127.0.0.1", "0.0.0.0"); }

    UpdateServer mServer;
    std::unique_ptr<CVUpdateCheck> mCheck;
};

TEST_F(CVUpdateCheckTest, AnAnswerComesBackToTheByte) {
    const QByteArray reply = updateReply("1.1", "1.2b1");
    mServer.answerWith(reply);
    EXPECT_EQ(fetched(mServer.address()), reply);
    EXPECT_EQ(fetched(mServer.address("/again")), reply);
    EXPECT_EQ(mServer.requests().size(), 2);
}

TEST_F(CVUpdateCheckTest, NothingIsSentThatNamesTheUserOrTheToolkit) {
    mServer.answerWith(updateReply("1.0"));
    fetched(mServer.address("/check?app=x&vers=1.0"));
    QString request = mServer.requests().constFirst();
    EXPECT_TRUE(request.startsWith("GET /check?app=x&vers=1.0 HTTP/1.1\r\n")) << request.toStdString();
    QStringList names;
    for (const QString& line : request.split("\r\n").mid(1)) {
        if (!line.isEmpty())
            names.append(line.section(':', 0, 0).toLower());
    }
    names.sort();
    EXPECT_EQ(names.join(' '), "accept-encoding accept-language connection host user-agent");
    EXPECT_TRUE(request.contains("User-Agent: Corvella/1.0\r\n")) << request.toStdString();
    EXPECT_TRUE(request.contains("Accept-Language: *\r\n")) << request.toStdString();
}

TEST_F(CVUpdateCheckTest, WhatIsNoGoodAnswerIsNone) {
    struct Case {
        const char* what;
        void (*prepare)(UpdateServer& server);
    };
    const Case cases[] = {
        {"not found", [](UpdateServer& server) { server.answerWithStatus("404 Not Found", updateReply("1.1")); }},
        {"server error", [](UpdateServer& server) { server.answerWithStatus("500 Oh", updateReply("1.1")); }},
        {"sign in", [](UpdateServer& server) { server.answerWithStatus("401 Unauthorized", "x"); }},
        {"one byte too many", [](UpdateServer& server) { server.answerWith(QByteArray((1 << 20) + 1, 'x')); }},
        {"endless", [](UpdateServer& server) { server.answerWith({}, Manner::Endless); }},
        {"closed half-way", [](UpdateServer& server) { server.answerWith(updateReply("1.1"), Manner::CutOff); }},
        {"a loop of redirects", [](UpdateServer& server) { server.redirectTo(server.address("/round").toLatin1()); }},
        {"a redirect to a file", [](UpdateServer& server) { server.redirectTo("file:///etc/hostname"); }},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        row.prepare(mServer);
        EXPECT_EQ(fetched(mServer.address()), QByteArray());
    }
}

TEST_F(CVUpdateCheckTest, SilenceEndsACheck) {
    setLimits(kSoon, kMuchLater);
    for (const Manner manner : {Manner::Silent, Manner::Hanging}) {
        mServer.answerWith(updateReply("1.1"), manner);
        EXPECT_EQ(fetched(mServer.address()), QByteArray());
    }
}

TEST_F(CVUpdateCheckTest, AnAnswerThatDripsEndsACheckToo) {
    setLimits(kMuchLater, kSoon);
    mServer.answerWith(QByteArray(1 << 16, 'x'), Manner::Dripping);
    EXPECT_EQ(fetched(mServer.address()), QByteArray());
}

TEST_F(CVUpdateCheckTest, AnAnswerOfTheLargestSizeIsTaken) {
    mServer.answerWith(QByteArray(1 << 20, 'x'));
    EXPECT_EQ(fetched(mServer.address()).size(), 1 << 20);
}

TEST_F(CVUpdateCheckTest, AShortRedirectIsFollowed) {
    UpdateServer other;
    other.answerWith(updateReply("1.1"));
    mServer.redirectTo(other.address("/elsewhere").toLatin1());
    EXPECT_EQ(fetched(mServer.address()), updateReply("1.1"));
    EXPECT_TRUE(other.requests().constFirst().startsWith("GET /elsewhere"));
}

TEST_F(CVUpdateCheckTest, NobodyListeningIsNoAnswer) {
    QString address;
    {
        const UpdateServer gone;
        address = gone.address();
    }
    EXPECT_EQ(fetched(address), QByteArray());
}

TEST_F(CVUpdateCheckTest, ARedirectToPlainHttpThatIsNotThisMachineIsNotFollowed) {
    UpdateServer other;
    other.answerWith(updateReply("1.1"));
    mServer.redirectTo(elsewhere(other).toLatin1());
    EXPECT_EQ(fetched(mServer.address()), QByteArray());
    EXPECT_EQ(mServer.requests().size(), 1);
    EXPECT_TRUE(other.requests().isEmpty());
}

TEST_F(CVUpdateCheckTest, OnlySecureAddressesAndThisMachineAreAsked) {
    mServer.answerWith(updateReply("1.1"));
    EXPECT_EQ(fetched(elsewhere(mServer)), QByteArray());
    for (const char* const address :
         {"http://updates.quenbylabs.example/check", "http://192.0.2.1/check", "file:///etc/hostname", "ftp://x/",
          "data:,x", "qrc:/SystemInfo.rtf", "https:", "", "nonsense"})
        EXPECT_EQ(fetched(QString::fromLatin1(address)), QByteArray()) << address;
    EXPECT_TRUE(mServer.requests().isEmpty());
}

TEST_F(CVUpdateCheckTest, SecureConnectionsCanBeMadeAndOneThatIsNoneIsNoAnswer) {
    EXPECT_TRUE(QSslSocket::supportsSsl());
    mServer.answerWith(updateReply("1.1"));
    EXPECT_EQ(fetched(mServer.address().replace("http:", "https:")), QByteArray());
}

TEST_F(CVUpdateCheckTest, ACancelledCheckEndsAtOnceAndSaysNothing) {
    for (const Manner manner : {Manner::Hanging, Manner::Silent, Manner::Dripping}) {
        mServer.answerWith(QByteArray(1 << 16, 'x'), manner);
        const QSignalSpy spy(mCheck.get(), &CVUpdateCheck::finished);
        const auto before = mServer.requests().size();
        mCheck->start(QUrl(mServer.address()), "Corvella/1.0");
        ASSERT_TRUE(QTest::qWaitFor([&] { return mServer.requests().size() > before; }, kPatience));
        mCheck->cancel();
        EXPECT_FALSE(mCheck->isRunning());
        QTest::qWait(50);
        EXPECT_TRUE(spy.isEmpty());
    }
    mCheck->cancel();
}

TEST_F(CVUpdateCheckTest, AnAnswerThatIsOnItsWayWhenTheCheckIsCancelledIsNotDelivered) {
    mServer.answerWith(updateReply("1.1"));
    const QSignalSpy finishedSpy(mCheck.get(), &CVUpdateCheck::finished);
    mCheck->start(QUrl(mServer.address()), "Corvella/1.0");
    while (mServer.requests().isEmpty())
        QTest::qSleep(10);
    // No event loop runs here: the worker has the answer, but its result is not delivered.
    QTest::qSleep(300);
    mCheck->cancel();
    QTest::qWait(50);
    EXPECT_TRUE(finishedSpy.isEmpty());
}

TEST_F(CVUpdateCheckTest, ACheckThatEndsAtAnyMomentLeavesTheNextOneWhole) {
    const QByteArray reply = updateReply("1.1");
    mServer.answerWith(reply);
    int finished = 0;
    for (int i = 0; i < 60; ++i) {
        auto check = std::make_unique<CVUpdateCheck>();
        QObject::connect(check.get(), &CVUpdateCheck::finished, [&finished] { ++finished; });
        check->start(QUrl(mServer.address()), "Corvella/1.0");
        QTest::qSleep(i / 4);
        if (i % 2 == 0)
            QCoreApplication::processEvents();
        const int before = finished;
        check = nullptr;
        EXPECT_EQ(finished, before) << "a check said something as it ended";
    }
    EXPECT_EQ(fetched(mServer.address()), reply);
}

} // namespace
