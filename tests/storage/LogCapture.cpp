#include "storage/LogCapture.h"

#include <mutex>

namespace {

struct Log {
    std::mutex mutex;
    QStringList messages;
};

Log& log() {
    static Log log;
    return log;
}

void take(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    const std::lock_guard lock(log().mutex);
    log().messages.append(message);
}

} // namespace

LogCapture::LogCapture() : mPrevious(qInstallMessageHandler(take)) {
    const std::lock_guard lock(log().mutex);
    log().messages.clear();
}

LogCapture::~LogCapture() {
    qInstallMessageHandler(mPrevious);
}

QStringList LogCapture::messages() {
    const std::lock_guard lock(log().mutex);
    return log().messages;
}
