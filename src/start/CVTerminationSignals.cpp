#include "start/CVTerminationSignals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>

namespace {

constexpr std::array<int, 3> kSignals{SIGTERM, SIGINT, SIGHUP};

/// The descriptor that the handler writes to; -1 for none.
std::atomic<int> writeEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may use nothing else");

/// Calls only functions that are safe in a signal handler.
void handle(int /*signal*/) {
    const int before = errno;
    const char byte = 0;
    // A failed write does not matter: a full pipe already tells that there was a signal.
    [[maybe_unused]] const auto written = ::write(writeEnd.load(), &byte, 1);
    errno = before;
}

void setHandler(int signal, void (*handler)(int)) {
    struct sigaction present {};
    if (sigaction(signal, nullptr, &present) != 0 || present.sa_handler == SIG_IGN)
        return;
    struct sigaction wanted {};
    wanted.sa_handler = handler;
    wanted.sa_flags = SA_RESTART;
    sigemptyset(&wanted.sa_mask);
    sigaction(signal, &wanted, nullptr);
}

} // namespace

CVTerminationSignals::CVTerminationSignals() {
    if (::pipe2(mPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* const notifier = new QSocketNotifier(mPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &CVTerminationSignals::drain);
    writeEnd = mPipe[1];
    for (const int signal : kSignals)
        setHandler(signal, handle);
}

CVTerminationSignals::~CVTerminationSignals() {
    if (mPipe[0] < 0)
        return;
    for (const int signal : kSignals)
        setHandler(signal, SIG_DFL);
    writeEnd = -1;
    for (const int end : mPipe)
        ::close(end);
}

void CVTerminationSignals::drain() {
    std::array<char, 16> bytes{};
    while (::read(mPipe[0], bytes.data(), bytes.size()) > 0) {
    }
    emit received();
}
