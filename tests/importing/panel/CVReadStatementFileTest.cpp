#include "importing/panel/CVReadStatementFile.h"

#include "importing/CVReadStatement.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class CVReadStatementFileTest : public testing::Test {
protected:
    [[nodiscard]] QString write(const QByteArray& bytes) const {
        QFile file(mHome.path("statement.csv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }
    [[nodiscard]] static std::pair<QByteArray, QString> read(const QString& path) {
        return CVReadStatementFile(path, [] { return true; });
    }

    ScratchHome mHome;
};

TEST_F(CVReadStatementFileTest, GivesTheBytesOfAFileThatMayOnlyBeRead) {
    const QString path = write("Date;Amount\n");
    ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::ReadOwner));
    EXPECT_EQ(read(path), std::pair(QByteArray("Date;Amount\n"), QString()));
}

TEST_F(CVReadStatementFileTest, SaysWhyAFileCannotBeOpened) {
    EXPECT_EQ(read(mHome.path("gone.csv")).second, "This file cannot be opened: No such file or directory.");
    EXPECT_EQ(read(mHome.path()).second, "This file cannot be opened: it is no file.");
}

TEST_F(CVReadStatementFileTest, APipeIsNotWaitedFor) {
    const QString path = mHome.path("pipe");
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(read(path).second, "This file cannot be opened: it is no file.");
}

TEST_F(CVReadStatementFileTest, AFileThatIsTooLargeIsReadOnlySoFar) {
    QFile file(write("Date;Amount\n"));
    // A hole takes no room on the disk.
    ASSERT_TRUE(file.resize(qint64(4) << 30));
    const auto [bytes, problem] = read(file.fileName());
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_TRUE(problem.startsWith("This file is larger than 64 megabytes")) << problem.toStdString();
}

TEST_F(CVReadStatementFileTest, StopsOnceTheBytesAreNotWanted) {
    const QString path = write(QByteArray(5'000'000, 'x'));
    int asked = 0;
    const auto [bytes, problem] = CVReadStatementFile(path, [&asked] { return ++asked < 3; });
    EXPECT_LT(bytes.size(), 5'000'000);
    EXPECT_TRUE(problem.isEmpty());
}

} // namespace
