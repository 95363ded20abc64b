#include "storage/CVRecoverInterruptedSaves.h"

#include "kit/ScratchHome.h"
#include "storage/SampleFile.h"
#include "storage/ScratchFiles.h"
#include "versions/CVVersionFolder.h"

#include <QFile>
#include <QSysInfo>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The number of a process that has ended.
int endedProcess() {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

class CVRecoverInterruptedSavesTest : public testing::Test {
protected:
    CVRecoverInterruptedSavesTest() { writeFile(mPath, sampleFile()); }

    [[nodiscard]] QString leftover(const QByteArray& bytes, const QString& host = QSysInfo::machineHostName(),
                                   int process = endedProcess(),
                                   const QString& name = QStringLiteral("Data.corvella")) const {
        QString path = QStringLiteral("%1/.%2.saving-%3-%4-abcdef").arg(mFolder, name, host).arg(process);
        writeFile(path, bytes);
        return path;
    }

    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/Data.corvella");
    CVVersionFolder mVersions{mPath};
};

TEST_F(CVRecoverInterruptedSavesTest, makesAVersionOfAWholeBudget) {
    const QByteArray whole = sampleFile().replace("2014", "2013");
    const QString path = leftover(whole);
    EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
    EXPECT_FALSE(QFile::exists(path));
    ASSERT_EQ(mVersions.versions().size(), 1);
    EXPECT_EQ(readFile(mVersions.versions().constFirst().path), whole);
    EXPECT_EQ(mVersions.versions().constFirst().name.reason, CVVersionReason::Interruption);
    EXPECT_EQ(readFile(mPath), sampleFile());
}

TEST_F(CVRecoverInterruptedSavesTest, removesOneThatWasCut) {
    const QByteArray whole = sampleFile();
    for (const qsizetype length : {qsizetype(0), qsizetype(1), qsizetype(40), whole.size() / 2, whole.size() - 3}) {
        const QString path = leftover(whole.first(length));
        EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
        EXPECT_FALSE(QFile::exists(path)) << length;
        EXPECT_TRUE(mVersions.versions().isEmpty()) << length;
    }
}

TEST_F(CVRecoverInterruptedSavesTest, touchesNothingElse) {
    const int ended = endedProcess();
    const QString host = QSysInfo::machineHostName();
    const QStringList others{leftover("of another machine", host + u'x', ended),
                             leftover("of a running program", host, ::getppid()),
                             leftover("of another file", host, ended, QStringLiteral("Other.corvella")),
                             leftover("<html>no budget</html>", host, ended)};
    writeFile(mFolder + "/.Data.corvella.saving", "a name of its own");
    writeFile(mFolder + "/.Data.corvella.saving-" + host + "-12-abc", "too short");
    const QStringList before = namesIn(mFolder);
    EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
    EXPECT_EQ(namesIn(mFolder), before);
}

TEST_F(CVRecoverInterruptedSavesTest, removesASecondNameOfTheDataFile) {
    const QString path = leftover("");
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_EQ(::link(QFile::encodeName(mPath).constData(), QFile::encodeName(path).constData()), 0);
    EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella"}));
}

TEST_F(CVRecoverInterruptedSavesTest, removesCopiesThatWereNotFinished) {
    const QString name = QStringLiteral("Data 2026-11-22 140207 (hourly).corvella");
    EXPECT_TRUE(mVersions.keepCopy(mPath, CVVersionReason::Hourly, QDateTime::currentDateTime()).ok());
    const QString copy = leftover("half a version", QSysInfo::machineHostName(), endedProcess(), name);
    ASSERT_TRUE(QFile::rename(copy, mVersions.path() + "/" + QFileInfo(copy).fileName()));
    (void)leftover("half", QSysInfo::machineHostName(), endedProcess(),
                   QStringLiteral("Data (unreadable 2026-11-22 140207).corvella"));
    EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
    EXPECT_EQ(namesIn(mFolder), QStringList({"Data.corvella", "Earlier Versions"}));
    EXPECT_EQ(namesIn(mVersions.path()).size(), 1);
}

TEST_F(CVRecoverInterruptedSavesTest, leavesWhatItDoesNotUnderstand) {
    const QByteArray padding(64, ' ');
    for (const QByteArray& bytes : {"<EncryptedData><Salt><Specified>c2FsdA==</Specified></Salt>" + padding,
                                    "<Other><Transaction/></Other>" + padding, "<html>" + padding + "</p>"}) {
        const QString path = leftover(bytes);
        EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
        EXPECT_EQ(readFile(path), bytes);
        EXPECT_TRUE(mVersions.versions().isEmpty());
        ASSERT_TRUE(QFile::remove(path));
    }
}

TEST_F(CVRecoverInterruptedSavesTest, leavesWhatIsTooLargeToBeRead) {
    const QString path = leftover("<?xml");
    ASSERT_TRUE(QFile::resize(path, 3LL << 30));
    EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(CVRecoverInterruptedSavesTest, removesOneOfWhichTheDiskHasLostTheEnd) {
    const QByteArray whole = sampleFile();
    for (const qsizetype written : {whole.size() / 2, whole.size()}) {
        const QString path = leftover(whole.first(written) + QByteArray(500, '\0'));
        EXPECT_TRUE(CVRecoverInterruptedSaves(mPath).ok());
        EXPECT_FALSE(QFile::exists(path)) << written;
        EXPECT_TRUE(mVersions.versions().isEmpty()) << written;
    }
}

} // namespace
