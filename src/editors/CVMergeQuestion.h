#pragma once

#include "widgets/CVAlerts.h"

struct CVCategoryMerge;

/// The question whether a category that got the name of another one is to be merged into that one. Its default answer
/// merges both, the other one keeps both under the same name, and the alternate one leaves the former name.
[[nodiscard]] CVAlert CVMergeQuestion(const CVCategoryMerge& merge);
