#pragma once

#include "files/CVReplaceFile.h"

#include <QStringList>

class QTextStream;

/// The standard streams of the commands.
namespace CVStandardStreams {

/// The argument that stands for standard input or standard output in place of a file.
inline constexpr const char* kName = "-";
/// The path under which standard input can be examined.
inline constexpr const char* kInputPath = "/dev/stdin";

/// Opens closed standard streams so that using them fails. Otherwise a file opened later would get the number of a
/// stream, and with it the bytes meant for the stream.
void openClosedStreams();

/// Writes to standard output, unless that is one of the `spared` files. Returns the exit status: 0, or 1 after one line
/// on `errors`.
[[nodiscard]] int write(const CVFileContent& content, const QStringList& spared, QTextStream& errors);
[[nodiscard]] int write(const QByteArray& text, const QStringList& spared, QTextStream& errors);
/// The exit status after writing to standard output: 0 when `failure` is absent, else 1 after one line on `errors`.
[[nodiscard]] int tellOutcome(const std::optional<QString>& failure, QTextStream& errors);

} // namespace CVStandardStreams
