#pragma once

#include "importing/camt/CVCAMTEntry.h"

#include <vector>

/// The lines of an entry: its payments where they add up to its amount, else one.
[[nodiscard]] std::vector<CVStatementLine> CVLinesOfCAMTEntry(const CVCAMTEntry& entry, const CVCAMTAccount& account);
