#pragma once

class CVDocument;

/// Whether another budget has plans of its own. Transactions that were exported have none.
enum class CVPlansOfOther : bool { Known, Unknown };

/// Prepares another budget for being merged with ours, with which it has only names in common. Its transactions without
/// a set come into our set of those that had none, else into the one that we show, or stay without one where we have no
/// sets. No set of theirs keeps an ID that transactions of ours have for want of a set.
void CVFitToBudget(CVDocument& other, const CVDocument& ours);
