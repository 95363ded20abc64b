#pragma once

#include "model/CVVersionReason.h"

class CVDocument;
struct CVBudgetDifferences;

/// Brings chosen differences between `merged`, in which two states were joined, and `ours`, the copy of the present
/// budget that was joined, into the present budget as one change: `before` is what it says in `merged`. What is not in
/// `merged` is removed; a set or category only when no transaction is left in it, and the shown set never. Differences
/// that are none any more are passed over. Returns how many were brought in.
///
/// A record that is made keeps its ID unless another one has it by now; the last issued ID becomes the greater one.
/// The shown set stays. The state before becomes a version for that reason; everything is announced once and saved
/// once, and nothing of this happens when nothing is brought in.
[[nodiscard]] int CVBringIn(CVDocument& present, const CVDocument& merged, const CVDocument& ours,
                            const CVBudgetDifferences& chosen, CVVersionReason reason = CVVersionReason::TakingOver);
