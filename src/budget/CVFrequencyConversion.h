#pragma once

#include <QtGlobal>

class CVCategory;

/// Converts the category's target in place from an amount per `from` period to one per `to` period (frequency codes),
/// without rounding. Equal codes and codes outside 0 to 7 leave it unchanged. The category's frequency is not changed.
void mapExpenseFrequencyFrom(CVCategory& category, qint64 from, qint64 to);
