#include "CVFinishedProgram.h"

#include <QProcess>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

} // namespace

std::optional<CVFinishedProgram> CVFinishedProgram::run(std::vector<QByteArray> words) {
    std::vector<char*> arguments;
    for (QByteArray& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    int status = -1;
    rusage usage{};
    const bool ran = posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ) == 0 &&
                     wait4(process, &status, 0, &usage) == process;
    posix_spawn_file_actions_destroy(&actions);
    if (!ran || status != 0)
        return std::nullopt;
    return CVFinishedProgram{secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime)};
}

std::optional<double> CVPeakMemoryOf(const QStringList& words) {
    constexpr double kKilobyte = 1024;
    constexpr const char* kStarter = "import resource, subprocess, sys\n"
                                     "subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, check=True)\n"
                                     "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)\n";
    QProcess starter;
    starter.start(QStringLiteral("python3"), QStringList{QStringLiteral("-c"), QLatin1String(kStarter)} + words);
    if (!starter.waitForFinished(-1) || starter.exitStatus() != QProcess::NormalExit || starter.exitCode() != 0)
        return std::nullopt;
    return starter.readAllStandardOutput().trimmed().toDouble() * kKilobyte;
}
