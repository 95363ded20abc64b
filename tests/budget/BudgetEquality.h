#pragma once

#include "budget/CVDayRange.h"
#include "model/CVDocument.h"

/// These functions expect the results of src/budget and of `PlainScan` to be equal to the last bit.

/// Every cell and total of the grid over these columns, for all categories as rows.
void expectGridAsPlain(const CVDocument& document, std::span<const CVDayRange> columns, const CVDayRange& total);
/// Every figure of every category for the range, computed together and one by one.
void expectFiguresAsPlain(const CVDocument& document, const CVDayRange& range);
/// The rows and the transactions of the range of every category.
void expectSelectionsAsPlain(const CVDocument& document, const CVDayRange& range);
