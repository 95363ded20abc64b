#include "kit/ScratchHome.h"
#include "storage/ParsedBudget.h"
#include "storage/ScratchFiles.h"

#include <QFile>

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <ostream>

namespace {

/// A local server that never answers and records whether a client connected.
class Listener final {
public:
    Listener() : mSocket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
        mAddress.sin_family = AF_INET;
        mAddress.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof mAddress;
        if (::bind(mSocket, generic(), size) != 0 || ::listen(mSocket, 1) != 0 ||
            ::getsockname(mSocket, generic(), &size) != 0)
            qFatal("cannot listen on this machine");
    }
    ~Listener() { ::close(mSocket); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    [[nodiscard]] QByteArray url() const {
        return "http://127.0.0.1:" + QByteArray::number(ntohs(mAddress.sin_port)) + "/entity";
    }

    void call() {
        const int caller = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(::connect(caller, generic(), sizeof mAddress), 0);
        ::close(caller);
    }

    [[nodiscard]] bool wasCalled() const {
        const int connection = ::accept4(mSocket, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection >= 0)
            ::close(connection);
        return connection >= 0;
    }

private:
    [[nodiscard]] sockaddr* generic() { return reinterpret_cast<sockaddr*>(&mAddress); }

    int mSocket;
    sockaddr_in mAddress{};
};

/// Records whether a file was opened.
class Watch final {
public:
    explicit Watch(const QString& path) : mNotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        if (::inotify_add_watch(mNotify, QFile::encodeName(path).constData(), IN_OPEN) < 0)
            qFatal("cannot watch %s", qPrintable(path));
    }
    ~Watch() { ::close(mNotify); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    [[nodiscard]] bool wasOpened() const {
        alignas(inotify_event) std::array<char, 4096> events{};
        return ::read(mNotify, events.data(), events.size()) > 0;
    }

private:
    int mNotify;
};

/// A document type with FILE and SERVER as placeholders for addresses, and an entity that refers to one of them.
struct DoctypeRow {
    const char* behaviour;
    QByteArray doctype;
    QByteArray name;
};

void PrintTo(const DoctypeRow& row, std::ostream* out) {
    *out << row.behaviour;
}

class SecretFile {
protected:
    SecretFile() { writeFile(mSecret, "<!ENTITY inner \"told\"><!ATTLIST Category id CDATA \"99\">told"); }

    ScratchHome mHome;
    QString mSecret = mHome.path(QStringLiteral("secret"));
    Listener mListener;
};

class ExternalAccess : public SecretFile, public testing::TestWithParam<DoctypeRow> {};
class ExternalAccessControl : public SecretFile, public testing::Test {};

TEST_P(ExternalAccess, neverHappens) {
    const Watch watch(mSecret);
    QByteArray doctype = GetParam().doctype;
    doctype.replace("FILE", "file://" + QFile::encodeName(mSecret).replace(' ', "%20"));
    doctype.replace("SERVER", mListener.url());
    ParsedBudget budget("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE CorvellaDocument " + doctype +
                        ">\n<CorvellaDocument><Category>" + GetParam().name + "</Category></CorvellaDocument>\n");
    EXPECT_FALSE(watch.wasOpened());
    EXPECT_FALSE(mListener.wasCalled());
    for (const QString& record : budget.records())
        EXPECT_FALSE(record.contains(QLatin1String("told")) || record.contains(QLatin1String("99")))
            << record.toStdString();
    EXPECT_TRUE(budget.read() || budget.holdsDefaults());
}

const std::vector<DoctypeRow> kDoctypes{
    {"a general entity that names a file", "[<!ENTITY e SYSTEM \"FILE\">]", "a&e;"},
    {"a general entity that names a server", "[<!ENTITY e SYSTEM \"SERVER\">]", "a&e;"},
    {"a public entity that names a server", "[<!ENTITY e PUBLIC \"-//a//b//EN\" \"SERVER\">]", "a&e;"},
    {"a parameter entity that names a file", "[<!ENTITY % p SYSTEM \"FILE\">%p;]", "a&inner;"},
    {"a parameter entity that names a server", "[<!ENTITY % p SYSTEM \"SERVER\">%p;]", "a"},
    {"an external subset in a file", "SYSTEM \"FILE\"", "a&inner;"},
    {"an external subset on a server", "SYSTEM \"SERVER\"", "a"},
    {"a public external subset on a server", "PUBLIC \"-//a//b//EN\" \"SERVER\"", "a"},
    {"an external subset and an internal one", "SYSTEM \"FILE\" [<!ENTITY % p SYSTEM \"SERVER\">%p;]", "a&inner;"},
    {"an unparsed entity", "[<!NOTATION n SYSTEM \"FILE\"><!ENTITY e SYSTEM \"SERVER\" NDATA n>]", "a&e;"},
};

INSTANTIATE_TEST_SUITE_P(all, ExternalAccess, testing::ValuesIn(kDoctypes));

TEST_F(ExternalAccessControl, wouldBeNoticed) {
    const Watch watch(mSecret);
    EXPECT_FALSE(readFile(mSecret).isEmpty());
    EXPECT_TRUE(watch.wasOpened());
    mListener.call();
    EXPECT_TRUE(mListener.wasCalled());
}

} // namespace
