#include "CVStartedProgram.h"

#include "CVPrivateDisplay.h"

#include <QFile>
#include <QProcess>

#include <time.h>

#include <chrono>
#include <thread>

namespace {

constexpr std::chrono::seconds kPatience(60);
constexpr int kEndPatience = 10'000;
/// A program that takes no more than so much CPU for so long has painted its window and waits for events.
constexpr double kIdleSeconds = 0.001;
constexpr std::chrono::milliseconds kIdle(200);

/// The CPU that a process has taken so far.
double secondsOf(pid_t process) {
    clockid_t clock{};
    timespec taken{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &taken) != 0)
        return 0;
    return static_cast<double>(taken.tv_sec) + static_cast<double>(taken.tv_nsec) * 1e-9;
}

/// The most memory that a process has had at once, in bytes, as the kernel counts it (VmHWM).
double peakMemoryOf(pid_t process) {
    constexpr double kKilobyte = 1024;
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').at(1).toDouble() * kKilobyte;
    }
    return 0;
}

double secondsUntilIdle(pid_t process) {
    double before = secondsOf(process);
    for (;;) {
        std::this_thread::sleep_for(kIdle);
        const double now = secondsOf(process);
        if (now - before <= kIdleSeconds)
            return now;
        before = now;
    }
}

} // namespace

std::optional<CVStartedProgram> CVStartToWindow(CVPrivateDisplay& display, const QString& program,
                                                QProcessEnvironment environment, const QByteArray& title) {
    environment.insert(QStringLiteral("DISPLAY"), display.name());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, QStringList());
    if (!process.waitForStarted())
        return std::nullopt;
    std::optional<CVStartedProgram> started;
    if (display.waitForWindow(title, kPatience)) {
        const auto id = static_cast<pid_t>(process.processId());
        const double seconds = secondsUntilIdle(id);
        started = CVStartedProgram{seconds, peakMemoryOf(id)};
    }
    process.terminate();
    if (!process.waitForFinished(kEndPatience))
        return std::nullopt;
    return started;
}
