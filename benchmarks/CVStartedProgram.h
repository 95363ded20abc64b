#pragma once

#include <QByteArray>
#include <QProcessEnvironment>

#include <optional>

class CVPrivateDisplay;

/// What a program took from its start until it waited for its user.
struct CVStartedProgram {
    /// Seconds of CPU, user and system, of all its threads.
    double seconds = 0;
    /// Bytes.
    double peakMemory = 0;
};

/// Starts a program and ends it again once it shows a window of that title and waits for its user; absent when the
/// window does not come.
[[nodiscard]] std::optional<CVStartedProgram> CVStartToWindow(CVPrivateDisplay& display, const QString& program,
                                                              QProcessEnvironment environment, const QByteArray& title);
