#pragma once

#include "budget/CVDayRange.h"
#include "kit/Printers.h"

#include <ostream>

/// How failed assertions show a range.
inline void PrintTo(const CVDayRange& range, std::ostream* out) {
    PrintTo(range.start, out);
    *out << " to ";
    PrintTo(range.end, out);
}
