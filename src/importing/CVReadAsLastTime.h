#pragma once

#include "importing/CVImportNotes.h"
#include "importing/statements/CVStatement.h"
#include "importing/statements/CVStopRequested.h"

/// A statement, and what it was read as.
struct CVStatementAsLastTime {
    CVStatement statement = {};
    CVStatementMapping known = {};
    /// Whether something of it was kept from the last statement with that header.
    bool isAsLastTime = false;
};

/// Reads a statement as `given` says, and what that leaves open as the last statement with the same header was read,
/// where this lets no more lines be unreadable. What was kept of statements without a header says only what the texts
/// are, for another bank may write as many columns; what is open is asked again, with the answer of the last time
/// first.
[[nodiscard]] CVStatementAsLastTime CVReadAsLastTime(const QByteArray& bytes, const CVStatementMapping& given,
                                                     const CVImportNotes& notes, const CVStopRequested& stop = {});
