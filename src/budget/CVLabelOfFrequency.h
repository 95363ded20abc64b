#pragma once

#include <QString>

/// The number of frequencies that a user can choose: the codes 0 to 7.
inline constexpr int kFrequencyLabels = 8;

/// The name of an expense-frequency code in the user's language; null for a code outside 0 to 7.
[[nodiscard]] QString CVLabelOfFrequency(qint64 code);
