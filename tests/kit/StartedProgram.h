#pragma once

#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryFile>

#include <sys/types.h>

#include <optional>

/// A program that a test runs beside itself. The toolkit's class starts programs in the memory of the test, and the
/// checker of threads then takes the test for the program that has begun: it overlooks its locks and lets it start no
/// threads any more.
class StartedProgram final {
public:
    /// Starts the program of that name or path; its standard error goes where the test's goes.
    explicit StartedProgram(const QString& program, const QStringList& arguments,
                            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
    /// Waits for its end.
    ~StartedProgram();
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    [[nodiscard]] bool isRunning();
    /// Waits for its end; its exit status, or -1 when it could not be started or was killed.
    int wait();
    /// What it has written to standard output until now.
    [[nodiscard]] QByteArray output();

private:
    QTemporaryFile mOutput;
    pid_t mProcess = -1;
    std::optional<int> mStatus;
};
