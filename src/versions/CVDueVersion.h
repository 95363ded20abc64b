#pragma once

#include "versions/CVVersionName.h"

/// Why the file that a save replaces is to be kept as a version; absent when it is not. `asked` is what the change
/// itself asks for. `written` is when the file was last written. `newest` is the newest version that is not of the
/// future, absent when there is none. Removals within a minute count as one. Otherwise a version is due where there is
/// none, at the first change of a day and once an hour.
[[nodiscard]] std::optional<CVVersionReason> CVDueVersion(std::optional<CVVersionReason> asked,
                                                          const QDateTime& written,
                                                          const std::optional<CVVersionName>& newest,
                                                          const QDateTime& now);
