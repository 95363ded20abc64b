#pragma once

#include "importing/CVImportIntoBudget.h"

/// What has become of the transactions of an import.
struct CVImportState {
    int asImported = 0;
    int edited = 0;
    /// Those that are not in the budget any more.
    int removed = 0;
};
[[nodiscard]] CVImportState CVStateOfImport(const CVDocument& document, const CVImported& imported);

/// Whether transactions that were edited since the import go too.
enum class CVEditedTransactions : bool { Stay, Go };

/// Takes an import back as one change: its transactions go, and so do the categories and sets that came with it, unless
/// a transaction is in them, or somebody has renamed or planned them. The set that was shown before the import is shown
/// again where the shown one goes. Announces all once and saves once; the state before becomes an earlier version.
/// Returns the lines that were taken back; empty when there was nothing left to take back, and then nothing happens.
[[nodiscard]] CVImportLines CVTakeBackImport(CVDocument& document, const CVImported& imported,
                                             CVEditedTransactions edited);
