#pragma once

#include <QString>

/// The number of frequencies that a user can choose: the codes 0 to 7.
inline constexpr int kFrequencyLabels = 8;

/// What the user reads for an expense-frequency code; null for one outside 0 to 7.
[[nodiscard]] QString CVFrequencyLabel(qint64 code);
