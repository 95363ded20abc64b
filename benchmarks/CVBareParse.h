#pragma once

#include <QByteArray>
#include <QString>

/// The yardstick of whatever reads a data file: the parser alone, with the same callbacks as the reader, all of them
/// empty. False when it found a fault.
[[nodiscard]] bool CVParseBare(const QByteArray& bytes);
/// The same, reading the file as the parser asks for its bytes.
[[nodiscard]] bool CVParseBareFile(const QString& path);
