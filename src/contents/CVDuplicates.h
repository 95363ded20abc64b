#pragma once

#include "model/CVCollections.h"

#include <vector>

/// The transactions that look as if they were entered twice: the later one of each two neighbours with equal payee,
/// "for" text, amount, category and date, so that one of each group remains. Texts and amounts are compared exactly; a
/// missing text or date equals nothing, not even another missing one. The result is in order from the last pair to the
/// first.
[[nodiscard]] CVTransactions CVFindDuplicates(const CVTransactions& transactions);

/// What `CVFindDuplicates` finds in each set by itself, because a transaction of another set is neither a double nor a
/// neighbour. The sets follow each other in order of their IDs.
[[nodiscard]] CVTransactions CVFindDuplicatesOfEachSet(const CVTransactions& transactions);
