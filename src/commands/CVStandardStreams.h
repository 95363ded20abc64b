#pragma once

#include "base/CVSafeFile.h"

#include <QStringList>

class QTextStream;

/// The standard streams of the commands, and their name among the arguments.
namespace CVStandardStreams {

/// In place of a file: standard input to be read, standard output to be written.
inline constexpr const char* kName = "-";
/// By which standard input can be looked at.
inline constexpr const char* kInputPath = "/dev/stdin";

/// Those that are closed get a place that can be neither read nor written, before a file gets their numbers and, with
/// it, what is meant for them.
void occupy();

/// Writes to standard output, unless it leads into one of the `spared` files; the exit status, 1 after one line on
/// `errors`.
[[nodiscard]] int write(const CVFileContent& content, const QStringList& spared, QTextStream& errors);
[[nodiscard]] int write(const QByteArray& text, const QStringList& spared, QTextStream& errors);
/// The exit status after writing to standard output; one line on `errors` where there is a failure.
[[nodiscard]] int written(const std::optional<QString>& failure, QTextStream& errors);

} // namespace CVStandardStreams
