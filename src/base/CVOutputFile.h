#pragma once

#include "base/CVSafeFile.h"

/// Writes a file that the user wants to have, which stands there whole or as it was. What is no file (a pipe, a
/// terminal, another device) is written to as it stands there. Refused where it is one of the `spared` files, by
/// whatever name. Absent when that succeeded or `write` answered false, else the reason.
[[nodiscard]] std::optional<QString> CVWriteOutputFile(const QString& path, const CVFileContent& write,
                                                       const QStringList& spared = {});

/// Writes to what is open already, standard output say; the same answer.
[[nodiscard]] std::optional<QString> CVWriteOutput(int descriptor, const CVFileContent& write,
                                                   const QStringList& spared = {});
