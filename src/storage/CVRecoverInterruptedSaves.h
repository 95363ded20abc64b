#pragma once

#include "files/CVFileResult.h"

/// Looks for what saves of killed programs have left beside the data file: a whole budget becomes an earlier version,
/// one that was cut goes, anything else stays. Only for the one program that holds the data file, before its first
/// save.
[[nodiscard]] CVFileResult CVRecoverInterruptedSaves(const QString& dataFile);
