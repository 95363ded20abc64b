#include "widgets/CVDesktopPrograms.h"

#include "kit/Printers.h"
#include "kit/ScriptedAlerts.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

namespace {

/// A desktop whose opener records its arguments and ends as it is told.
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

    ScriptedAlerts mAlerts;
    QTemporaryDir mFolder;
    QByteArray mPath = qgetenv("PATH");
    const QUrl mAddress{"https://example.org/a page?x=1&y=%22"};
};

TEST_F(CVDesktopProgramsTest, TellAnAddressThatTheDesktopTookAndCouldNotOpen) {
    for (const char* const end : {"exit 3", "exit 4", "kill -9 $$"}) {
        setOpener(end);
        ScriptedAlerts alerts;
        CVDesktopPrograms programs(alerts);
        QWidget window;
        window.setWindowTitle("Asker");
        programs.openURL(mAddress, &window);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !alerts.shown().isEmpty(); })) << end;
        EXPECT_EQ(alerts.shown()[0].title, "No program could be opened for this address");
        EXPECT_TRUE(alerts.shown()[0].message.endsWith("\n\n" + mAddress.toDisplayString()))
            << alerts.shown()[0].message.toStdString();
        EXPECT_EQ(alerts.owners(), QStringList{"Asker"});
    }
}

TEST_F(CVDesktopProgramsTest, TellOnlyToWhomAMailGoes) {
    setOpener("exit 3");
    CVDesktopPrograms programs(mAlerts);
    programs.openURL(QUrl("mailto:help@example.org?body=a%20long%20letter"), nullptr);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !mAlerts.shown().isEmpty(); }));
    EXPECT_TRUE(mAlerts.shown()[0].message.endsWith("\n\nhelp@example.org"))
        << mAlerts.shown()[0].message.toStdString();
}

TEST_F(CVDesktopProgramsTest, TellAnAddressWhoseWindowHasClosed) {
    setOpener("exit 3");
    CVDesktopPrograms programs(mAlerts);
    auto window = std::make_unique<QWidget>();
    programs.openURL(mAddress, window.get());
    window.reset();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !mAlerts.shown().isEmpty(); }));
    EXPECT_EQ(mAlerts.owners(), QStringList{QString()});
}

TEST_F(CVDesktopProgramsTest, SayNothingWhereItCould) {
    setOpener("exit 0");
    CVDesktopPrograms programs(mAlerts);
    programs.openURL(mAddress, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([this] { return QFile(given()).size() > 0; }));
    QFile file(given());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "https://example.org/a%20page?x=1&y=%22");
    QTest::qWait(100);
    EXPECT_TRUE(mAlerts.shown().isEmpty());
}

TEST_F(CVDesktopProgramsTest, TellAnAddressAtOnceWhereTheOpenerIsNoProgram) {
    setOpener("exit 0");
    QFile script(mFolder.filePath("xdg-open"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/no/such/interpreter\n");
    script.close();
    CVDesktopPrograms programs(mAlerts);
    programs.openURL(mAddress, nullptr);
    EXPECT_EQ(mAlerts.shown().size(), 1);
}

} // namespace
