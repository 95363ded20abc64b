#pragma once

#include <QStringList>
#include <QtGlobal>

/// Captures the log of all threads while this object lives, instead of writing it to standard error. At most one lives
/// at a time.
class LogCapture final {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// The messages so far, in their order.
    [[nodiscard]] static QStringList messages();

private:
    QtMessageHandler mPrevious;
};
