#include "storage/FaultyCalls.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <utility>

namespace FaultyCalls {

namespace {

struct State {
    std::mutex mutex;
    std::string folder;
    std::vector<Fault> faults;
    std::vector<Unsupported> unsupported;
    Record record;
    std::condition_variable gateChanged;
    std::string gate;
    bool arrived = false;
};

/// Calls before main() read this variable, so it is initialised at compile time.
constinit std::atomic<bool> armed = false;

State& state() {
    static State state;
    return state;
}

std::string pathOf(int descriptor) {
    std::array<char, 4096> target{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const auto length = ::syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), target.data(), target.size());
    return length > 0 ? std::string(target.data(), static_cast<std::size_t>(length)) : std::string();
}

int plannedError(const State& state, const std::string& name) {
    const std::vector<Call>& calls = state.record.calls;
    const std::size_t number = calls.size();
    for (const Fault& fault : state.faults) {
        if (fault.at == number)
            return fault.error;
        // A call that a signal interrupted is repeated until no signal comes.
        if (fault.error == EINTR)
            continue;
        const bool same = fault.at < number && calls[fault.at].name == name;
        if ((fault.repeat == Repeat::SameForEver && same) || (fault.repeat == Repeat::AllForEver && fault.at < number))
            // Only a write can be partial.
            return fault.error == kShort && name != "write" ? EIO : fault.error;
    }
    return 0;
}

} // namespace

int errorFor(const char* name, const std::string& path, const char* from) {
    if (!armed)
        return 0;
    std::unique_lock lock(state().mutex);
    if (path.rfind(state().folder, 0) != 0)
        return 0;
    if (state().gate == name) {
        state().arrived = true;
        state().gateChanged.notify_all();
        state().gateChanged.wait(lock, [] { return state().gate.empty(); });
    }
    for (const Unsupported& function : state().unsupported) {
        if (function.name == name)
            return function.error;
    }
    const int error = plannedError(state(), name);
    if (error == kKilled)
        ::kill(::getpid(), SIGKILL);
    state().record.calls.push_back({name, path, error != 0, from});
    return error;
}

int errorFor(const char* name, const char* path, const char* from) {
    return armed ? errorFor(name, std::string(path), from) : 0;
}

int errorFor(const char* name, int descriptor) {
    return armed ? errorFor(name, pathOf(descriptor)) : 0;
}

void noteMode(int descriptor) {
    if (!armed)
        return;
    struct stat status {};
    if (::syscall(SYS_fstat, descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return;
    const std::string path = pathOf(descriptor);
    const std::lock_guard lock(state().mutex);
    if (path.rfind(state().folder, 0) == 0)
        state().record.modesWhileWriting |= status.st_mode & 0777;
}

bool Record::failed(const char* name) const {
    return std::any_of(calls.begin(), calls.end(), [&](const Call& call) { return call.failed && call.name == name; });
}

void arm(const QString& folder, std::vector<Fault> faults, std::vector<Unsupported> unsupported) {
    const std::lock_guard lock(state().mutex);
    state().folder = QFile::encodeName(folder).toStdString();
    state().faults = std::move(faults);
    state().unsupported = std::move(unsupported);
    state().record = {};
    armed = true;
}

Record disarm() {
    armed = false;
    const std::lock_guard lock(state().mutex);
    return std::exchange(state().record, {});
}

Gate::Gate(const char* name) {
    const std::lock_guard lock(state().mutex);
    state().gate = name;
    state().arrived = false;
}

Gate::~Gate() {
    const std::lock_guard lock(state().mutex);
    state().gate.clear();
    state().gateChanged.notify_all();
}

void Gate::waitForArrival() {
    std::unique_lock lock(state().mutex);
    state().gateChanged.wait(lock, [] { return state().arrived; });
}

const Reasons& whyWorkFails() {
    static const Reasons table{
        {"open", {EACCES, EIO, ENOSPC, EMFILE, EROFS, EINTR}},
        {"tmpfile", {EACCES, EIO, ENOSPC, EMFILE, EOPNOTSUPP}},
        {"write", {ENOSPC, EDQUOT, EIO, EINTR, kShort}},
        {"read", {EIO, EINTR}},
        {"sendfile", {EIO, ENOSPC}},
        {"ioctl", {EIO, ENOSPC}},
        {"close", {EIO}},
        {"fsync", {EIO, ENOSPC}},
        {"fdatasync", {EIO, ENOSPC}},
        {"ftruncate", {EIO, EACCES}},
        {"rename", {EACCES, EIO, ENOSPC, EXDEV}},
        {"renameat2", {EACCES, EIO, ENOSPC, EINVAL, EPERM, EROFS, EINTR, ENOENT, EEXIST}},
        {"link", {EPERM, EIO, ENOSPC, EACCES, EMLINK}},
        {"unlink", {EACCES, EIO, EROFS}},
        {"chmod", {EPERM, EIO}},
        {"flock", {ENOLCK, EWOULDBLOCK, EIO}},
        {"futimens", {EPERM, EIO}},
        {"chown", {EPERM, EIO}},
        {"setxattr", {EPERM, ENOTSUP, ENOSPC, EIO}},
        {"removexattr", {EPERM, ENOTSUP, EIO}},
        {"mkdir", {EACCES, ENOSPC, EIO, EROFS}},
        {"rmdir", {EACCES, EIO, EROFS}},
    };
    return table;
}

const Reasons& whyLooksFail() {
    static const Reasons table{
        {"stat", {EACCES, EIO}},
        {"lstat", {EACCES, EIO}},
        {"fstat", {EIO}},
        {"statx", {EACCES, EIO}},
        {"access", {EACCES, EIO}},
        {"readlink", {EACCES, EIO}},
        {"getxattr", {EACCES, EIO}},
        {"listxattr", {EACCES, ENOTSUP, EIO}},
        {"realpath", {EACCES, EIO, ENOMEM}},
    };
    return table;
}

} // namespace FaultyCalls
