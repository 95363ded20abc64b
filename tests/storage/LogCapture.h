#pragma once

#include <QStringList>
#include <QtGlobal>

/// Takes what is logged while this object lives, in place of standard error. At most one lives at a time; what other
/// threads log is taken as well.
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
