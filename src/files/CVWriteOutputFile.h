#pragma once

#include "files/CVReplaceFile.h"

#include <QStringList>

/// Writes a file that the user asked for; when that fails, the old file stays whole. Writes directly to whatever is no
/// file (a pipe, a terminal, another device). Refuses a path that names one of the `spared` files, also through links.
/// Absent on success and when `write` answered false, else the reason of the failure. `access` holds for a new file.
[[nodiscard]] std::optional<QString> CVWriteOutputFile(const QString& path, const CVFileContent& write,
                                                       const QStringList& spared = {},
                                                       CVNewFile access = CVNewFile::Usual);

/// Writes to an open descriptor, such as standard output; answers as `CVWriteOutputFile` does.
[[nodiscard]] std::optional<QString> CVWriteOutput(int descriptor, const CVFileContent& write,
                                                   const QStringList& spared = {});
