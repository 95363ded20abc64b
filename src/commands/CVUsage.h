#pragma once

#include <QString>

/// What the program says of its command line: of all of it, or of one command.
[[nodiscard]] QString CVUsage(const QString& command = {});
