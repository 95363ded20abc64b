#include "kit/StartedProgram.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace {

/// The texts as the system takes them, with the null pointer that ends them.
std::vector<char*> pointersTo(QByteArrayList& texts) {
    std::vector<char*> pointers;
    for (QByteArray& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

QByteArrayList encoded(const QStringList& texts) {
    QByteArrayList bytes;
    for (const QString& text : texts)
        bytes.append(text.toLocal8Bit());
    return bytes;
}

int exitStatus(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

StartedProgram::StartedProgram(const QString& program, const QStringList& arguments,
                               const QProcessEnvironment& environment) {
    QByteArrayList texts = encoded(QStringList(program) + arguments);
    QByteArrayList variables = encoded(environment.toStringList());
    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    if (mOutput.open())
        ::posix_spawn_file_actions_adddup2(&actions, mOutput.handle(), STDOUT_FILENO);
    if (::posix_spawnp(&mProcess, texts[0].constData(), &actions, nullptr, pointersTo(texts).data(),
                       pointersTo(variables).data()) != 0)
        mStatus = -1;
    ::posix_spawn_file_actions_destroy(&actions);
}

StartedProgram::~StartedProgram() {
    wait();
}

bool StartedProgram::isRunning() {
    int status = 0;
    if (!mStatus && ::waitpid(mProcess, &status, WNOHANG) == mProcess)
        mStatus = exitStatus(status);
    return !mStatus;
}

int StartedProgram::wait() {
    int status = 0;
    if (!mStatus)
        mStatus = ::waitpid(mProcess, &status, 0) == mProcess ? exitStatus(status) : -1;
    return *mStatus;
}

QByteArray StartedProgram::output() {
    QFile file(mOutput.fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
