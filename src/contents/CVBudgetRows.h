#pragma once

#include "contents/CVShownSets.h"
#include "model/CVCollections.h"

class CVDocument;
class QBUserDefaults;

enum class CVShowUnused : bool { No, Yes };

/// The categories that form the rows of the grid and of the reports, in the document's order: those that a transaction
/// of the current set, or of any, uses, or all of them. Takes one walk over the transactions, whatever the number of
/// categories.
[[nodiscard]] CVCategories buildCategoryArray(const CVDocument& document, CVShowUnused showUnused,
                                              CVShownSets shownSets = CVShownSets::Current);

/// The preference "ShowUnusedCategories", of which only the low byte counts; 1 means yes, any other value no.
[[nodiscard]] CVShowUnused CVReadShowUnused(const QBUserDefaults& defaults);
