#pragma once

#include "commands/CVImportRequest.h"
#include "importing/CVImportLine.h"
#include "importing/statements/CVStatement.h"

/// The lines of a statement, as they would be recorded, as comma-separated text: date, amount, payee, for, category,
/// sure, note. `lines` are those of the statement, in its order.
[[nodiscard]] QString CVDryRunText(const CVImportLines& lines, const CVStatement& statement,
                                   const CVImportRequest& request);
