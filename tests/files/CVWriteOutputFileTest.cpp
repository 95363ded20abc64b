#include "files/CVWriteOutputFile.h"

#include "kit/Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

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

/// The spared file under other names: the same path, a path with detours, links of both kinds, and a link whose target
/// does not exist.
TEST_F(OutputFile, IsRefusedWhereItIsASparedFile) {
    put("a budget");
    const QString symbolic = folder.filePath("symbolic");
    const QString hard = folder.filePath("hard");
    ASSERT_TRUE(QFile::link(path, symbolic));
    ASSERT_EQ(::link(QFile::encodeName(path).constData(), QFile::encodeName(hard).constData()), 0);
    QDir(folder.path()).mkdir("inner");
    for (const QString& name : {path, symbolic, hard, folder.filePath("inner/../out")}) {
        for (const QString& spared : {path, symbolic, hard}) {
            SCOPED_TRACE((name + " sparing " + spared).toStdString());
            EXPECT_EQ(CVWriteOutputFile(name, writing("x"), {folder.filePath("other"), spared}),
                      "it is the data file that holds a budget");
        }
    }
    EXPECT_EQ(bytes(), "a budget");
    EXPECT_EQ(CVWriteOutputFile(folder.filePath("new"), writing("x"), {folder.filePath("inner/../new")}),
              "it is the data file that holds a budget");
    EXPECT_FALSE(QFile::exists(folder.filePath("new")));
    EXPECT_EQ(CVWriteOutputFile(folder.filePath("new"), writing("x"), {path, QString()}), std::nullopt);
}

TEST_F(OutputFile, IsRefusedWhereASparedFileIsOpenInItsPlace) {
    put("a budget");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    EXPECT_EQ(CVWriteOutput(file.handle(), writing("x"), {path}), "it is the data file that holds a budget");
    EXPECT_EQ(bytes(), "a budget");
    EXPECT_EQ(CVWriteOutput(file.handle(), writing("x")), std::nullopt);
    EXPECT_EQ(bytes(), "a budgetx");
}

TEST_F(OutputFile, MayBeADeviceThatIsAlsoRead) {
    EXPECT_EQ(CVWriteOutputFile("/dev/null", writing("x"), {"/dev/null"}), std::nullopt);
}

} // namespace
