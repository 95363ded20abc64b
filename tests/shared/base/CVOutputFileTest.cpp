#include "shared/base/CVOutputFile.h"

#include "kit/Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct OutputFile : testing::Test {
    void put(const QByteArray& bytes) const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    [[nodiscard]] QByteArray bytes() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] static std::function<bool(QIODevice&)> writing(const QByteArray& bytes, bool answer = true) {
        return [bytes, answer](QIODevice& output) {
            output.write(bytes);
            return answer;
        };
    }

    QTemporaryDir folder;
    QString path = folder.filePath("out");
};

TEST_F(OutputFile, IsReplacedAsAWhole) {
    put("before");
    EXPECT_EQ(CVWriteOutputFile(path, writing("after")), std::nullopt);
    EXPECT_EQ(bytes(), "after");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(OutputFile, StaysAsItWasWhenTheWriterGivesUp) {
    EXPECT_EQ(CVWriteOutputFile(path, writing("half", false)), std::nullopt);
    EXPECT_FALSE(QFile::exists(path));
    put("before");
    EXPECT_EQ(CVWriteOutputFile(path, writing("half", false)), std::nullopt);
    EXPECT_EQ(bytes(), "before");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(OutputFile, TellsWhyItCannotBeWritten) {
    EXPECT_TRUE(CVWriteOutputFile(folder.filePath("missing/out"), writing("x")).has_value());
    EXPECT_TRUE(CVWriteOutputFile(folder.path(), writing("x")).has_value());
}

TEST_F(OutputFile, TellsWhenADeviceIsFull) {
    if (!QFile::exists("/dev/full"))
        GTEST_SKIP() << "this machine has no device that is always full";
    EXPECT_TRUE(CVWriteOutputFile("/dev/full", writing("x")).has_value());
    EXPECT_EQ(CVWriteOutputFile("/dev/null", writing("x")), std::nullopt);
}

} // namespace
