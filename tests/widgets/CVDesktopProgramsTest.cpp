#include "widgets/CVDesktopPrograms.h"

#include "kit/Printers.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

/// A desktop whose opener writes down what it is given, and ends as it is told to.
class CVDesktopProgramsTest : public testing::Test {
protected:
    CVDesktopProgramsTest() { qputenv("PATH", mFolder.path().toLocal8Bit() + ':' + mPath); }
    ~CVDesktopProgramsTest() override { qputenv("PATH", mPath); }

    void setOpener(const QByteArray& end) const {
        QFile script(mFolder.filePath("xdg-open"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s' \"$1\" >'" + given().toLocal8Bit() + "'\necho noise; echo noise >&2\n" +
                     end + "\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    }
    [[nodiscard]] QString given() const { return mFolder.filePath("given"); }

    QTemporaryDir mFolder;
    QByteArray mPath = qgetenv("PATH");
    const QUrl mAddress{"https://example.org/a page?x=1&y=%22"};
};

TEST_F(CVDesktopProgramsTest, TellThatTheDesktopCouldNotOpenAnAddress) {
    for (const char* const end : {"exit 3", "exit 4", "kill -9 $$"}) {
        setOpener(end);
        CVDesktopPrograms programs;
        QSignalSpy failures(&programs, &CVDesktopPrograms::failed);
        QWidget window;
        EXPECT_TRUE(programs.openURL(mAddress, &window));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !failures.isEmpty(); })) << end;
        EXPECT_EQ(failures[0][0].toUrl(), mAddress);
        EXPECT_EQ(failures[0][1].value<QWidget*>(), &window);
    }
}

TEST_F(CVDesktopProgramsTest, SayNothingWhereItCould) {
    setOpener("exit 0");
    CVDesktopPrograms programs;
    QSignalSpy failures(&programs, &CVDesktopPrograms::failed);
    EXPECT_TRUE(programs.openURL(mAddress, nullptr));
    ASSERT_TRUE(QTest::qWaitFor([this] { return QFile(given()).size() > 0; }));
    QFile file(given());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "https://example.org/a%20page?x=1&y=%22");
    QTest::qWait(100);
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(CVDesktopProgramsTest, AreNotStartedWhereTheOpenerIsNoProgram) {
    setOpener("exit 0");
    QFile script(mFolder.filePath("xdg-open"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/no/such/interpreter\n");
    script.close();
    CVDesktopPrograms programs;
    EXPECT_FALSE(programs.openURL(mAddress, nullptr));
}

} // namespace
