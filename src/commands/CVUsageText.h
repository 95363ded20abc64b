#pragma once

#include <QString>

/// The help text for one command, or for the whole command line when `command` is empty or unknown.
[[nodiscard]] QString CVUsageText(const QString& command = {});
