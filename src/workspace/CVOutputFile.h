#pragma once

#include <QString>

#include <functional>
#include <optional>

class QIODevice;

/// Writes a file, which stands there whole or as it was: `write` is given what to write to, and leaves the file as it
/// was by answering false. What is no file (a pipe, a terminal, another device) is written to as it stands there.
/// Absent when that succeeded or `write` answered false, else the reason.
[[nodiscard]] std::optional<QString> CVWriteOutputFile(const QString& path,
                                                       const std::function<bool(QIODevice& output)>& write);
