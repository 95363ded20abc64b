#include "files/CVFileSink.h"

#include "storage/ScratchFiles.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace {

class CVFileSinkTest : public testing::Test {
protected:
    CVFileSinkTest() : mDescriptor(::open(mPath.toUtf8().constData(), O_RDWR | O_CREAT, 0600)) {}
    ~CVFileSinkTest() override { ::close(mDescriptor); }

    QTemporaryDir mFolder;
    QString mPath = mFolder.filePath("file");
    int mDescriptor;
};

TEST_F(CVFileSinkTest, WritesPiecesOfEverySizeInTheirOrder) {
    CVFileSink sink(mDescriptor);
    QByteArray expected;
    for (const int size : {1, 0, 65'535, 1, 65'536, 65'537, 7, 300'000, 3}) {
        const QByteArray piece(size, static_cast<char>('a' + expected.size() % 26));
        EXPECT_EQ(sink.write(piece), piece.size());
        expected += piece;
    }
    EXPECT_TRUE(sink.finish().ok());
    EXPECT_TRUE(readFile(mPath) == expected);
}

TEST_F(CVFileSinkTest, WritesEverythingToAPipe) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    CVFileSink sink(ends[1]);
    sink.write("all");
    EXPECT_TRUE(sink.finish().ok());
    std::array<char, 8> read{};
    EXPECT_EQ(::read(ends[0], read.data(), read.size()), 3);
    ::close(ends[0]);
    ::close(ends[1]);
}

/// A file size limit of the process stands for the full disk: it also lets a write take only a part.
TEST_F(CVFileSinkTest, TellsTheReasonOfAPartialWriteWhoeverIgnoresIt) {
    struct rlimit before {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100'000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    CVFileSink sink(mDescriptor);
    sink.write(QByteArray(150'000, 'x'));
    sink.write("what nobody looks at");
    const CVFileResult result = sink.finish();
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result.error, qt_error_string(EFBIG));
    EXPECT_EQ(sink.errorString(), qt_error_string(EFBIG));
    EXPECT_EQ(readFile(mPath).size(), 100'000);
}

TEST_F(CVFileSinkTest, TellsTheReasonOnlyAtTheEndWhereAllWasHeldBack) {
    const int full = ::open("/dev/full", O_WRONLY);
    if (full < 0)
        GTEST_SKIP() << "this machine has no device that is always full";
    CVFileSink sink(full);
    EXPECT_EQ(sink.write("x"), 1);
    const CVFileResult result = sink.finish();
    EXPECT_EQ(result.error, qt_error_string(ENOSPC));
    EXPECT_TRUE(result.diskIsFull());
    ::close(full);
}

TEST_F(CVFileSinkTest, WritesNothingMoreAfterAFailure) {
    const int readOnly = ::open(mPath.toUtf8().constData(), O_RDONLY);
    CVFileSink sink(readOnly);
    EXPECT_EQ(sink.write(QByteArray(100'000, 'x')), -1);
    EXPECT_EQ(sink.write("x"), -1);
    EXPECT_EQ(sink.finish().error, qt_error_string(EBADF));
    EXPECT_FALSE(sink.finish().diskIsFull());
    ::close(readOnly);
}

} // namespace
