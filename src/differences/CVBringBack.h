#pragma once

class CVDocument;
struct CVBudgetDifferences;

/// Undoes the chosen differences between `version`, an earlier state, and the present budget as one change: what was
/// removed is there again, what was changed says again what it said. Differences without `before` are passed over, and
/// so are those that are none any more because the budget has changed since. Returns how many were undone.
///
/// A transaction returns to its own set, which is made again where it is gone, and to the category of exactly that
/// name, which is made again, with its plan, where there is none. A record that is made again keeps its ID unless
/// another one has it by now. A renamed category that gets its name back takes in the transactions of one that was
/// added under that name, which then goes. The shown set stays. Everything is announced once and saved once; when
/// nothing is undone, nothing is announced or saved.
[[nodiscard]] int CVBringBack(CVDocument& present, const CVDocument& version, const CVBudgetDifferences& chosen);
