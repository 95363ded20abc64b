#pragma once

/// The transactions that a list, the grid and the reports are made of: those of the document's current set, or all of
/// the document, also those whose set is missing.
enum class CVShownSets : bool { Current, All };
