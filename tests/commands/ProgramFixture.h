#pragma once

#include "kit/Printers.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the real program as a script does: without a display, with its own home, in US English.
class ProgramFixture : public testing::Test {
protected:
    struct Result {
        int status;
        QString output;
        QString errors;
    };

    ProgramFixture() { QDir().mkpath(mHome.path()); }
    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const {
        QString path = mHome.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path;
    }

    [[nodiscard]] Result run(const QStringList& arguments) const { return start(CORVELLA_PROGRAM, arguments); }

    [[nodiscard]] Result start(const QString& executable, const QStringList& arguments) const {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", mHome.path());
        environment.insert("XDG_DATA_HOME", mHome.filePath("data"));
        environment.insert("XDG_CONFIG_HOME", mHome.filePath("config"));
        environment.insert("LC_ALL", "C.UTF-8");
        environment.insert("CORVELLA", CORVELLA_PROGRAM);
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"})
            environment.remove(name);
        environment.insert(mEnvironment);
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(mHome.path());
        program.start(executable, arguments);
        EXPECT_TRUE(program.waitForFinished(60'000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
                QString::fromUtf8(program.readAllStandardError())};
    }

    /// Runs a shell script and returns the program's joined output streams. $CORVELLA is the program, and the working
    /// folder is the home.
    [[nodiscard]] Result shell(const QString& script) const {
        return start(QStringLiteral("bash"), {QStringLiteral("-c"), QStringLiteral("cd \"$HOME\" && ") + script});
    }

    /// The names of all files and folders below the home, files with their sizes.
    [[nodiscard]] QStringList everything() const {
        QStringList names;
        QStringList folders{mHome.path()};
        while (!folders.isEmpty()) {
            for (const QFileInfo& entry :
                 QDir(folders.takeFirst())
                     .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
                names.append(entry.filePath() + ' ' + QString::number(entry.isDir() ? 0 : entry.size()));
                if (entry.isDir())
                    folders.append(entry.filePath());
            }
        }
        names.sort();
        return names;
    }

    /// Environment variables that replace the program's; an empty value removes the variable.
    QProcessEnvironment mEnvironment;
    QTemporaryDir mHome{QDir::tempPath() + "/a home XXXXXX"};
};
