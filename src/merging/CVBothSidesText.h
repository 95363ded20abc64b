#pragma once

#include <QString>

struct CVMergedBudget;

/// Whether it is known what both sides had in common, and so which side has changed what. What is imported has nothing
/// in common but names.
enum class CVCommonKnown : quint8 { Unknown, Known, Imported };

/// Names what was changed differently on both sides, the first few of them, and says what becomes of it; empty when
/// there is nothing of that kind. Says too what an unknown common state means.
[[nodiscard]] QString CVBothSidesText(const CVMergedBudget& merged, CVCommonKnown common);
