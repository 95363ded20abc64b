#pragma once

#include "model/CVDocument.h"

#include <vector>

/// The transactions that look as if they were entered twice: of each two neighbours with equal payee, "for" text,
/// amount, category and date the later one, so that one of each group remains. Texts and amounts are compared exactly;
/// a missing text equals nothing, not even another. Neighbours only, from the last pair to the first.
[[nodiscard]] CVDocument::Transactions CVFindDuplicates(const CVDocument::Transactions& transactions);
