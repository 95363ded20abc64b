#include "files/CVFolderWatch.h"

#include <QFile>
#include <QSocketNotifier>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

namespace {

constexpr std::size_t kBufferSize = 4096;

} // namespace

CVFolderWatch::CVFolderWatch() : mDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (mDescriptor < 0)
        return;
    mNotifier = new QSocketNotifier(mDescriptor, QSocketNotifier::Read, this);
    connect(mNotifier, &QSocketNotifier::activated, this, &CVFolderWatch::drain);
}

CVFolderWatch::~CVFolderWatch() {
    delete mNotifier;
    if (mDescriptor >= 0)
        ::close(mDescriptor);
}

void CVFolderWatch::follow(const QString& folder) {
    if (mDescriptor < 0)
        return;
    if (mWatch >= 0)
        ::inotify_rm_watch(mDescriptor, mWatch);
    mWatch = ::inotify_add_watch(mDescriptor, QFile::encodeName(folder).constData(),
                                 IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ONLYDIR);
}

/// What happened does not matter, because the file is looked at.
void CVFolderWatch::drain() {
    std::array<char, kBufferSize> events{};
    while (::read(mDescriptor, events.data(), events.size()) > 0) {
    }
    emit changed();
}
