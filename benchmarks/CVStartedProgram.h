#pragma once

#include <QByteArray>
#include <QProcessEnvironment>

#include <optional>

class CVPrivateDisplay;

/// Starts a program and ends it again once it shows a window of that title and waits for its user. The seconds of CPU,
/// user and system, of all its threads until then; absent when the window does not come.
[[nodiscard]] std::optional<double> CVSecondsToWindow(CVPrivateDisplay& display, const QString& program,
                                                      QProcessEnvironment environment, const QByteArray& title);
