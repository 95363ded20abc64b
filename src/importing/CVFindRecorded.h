#pragma once

#include "base/QBDate.h"

#include <QString>

#include <optional>
#include <vector>

class CVRecordedLines;

/// A line of a statement that may be recorded already.
struct CVSoughtLine {
    /// Absent where the line cannot be read or belongs to no set that there is: then it is not found.
    std::optional<QBDate> day = {};
    /// As the budget has it.
    qint64 hundredths = 0;
    QString payee = {};
    /// Where the user calls the payee otherwise.
    QString payeeInStatement = {};
    quint32 set = 0;
    /// Whether it is recorded for certain, because the bank's number of it was seen before. Then it takes no
    /// transaction of another payee.
    bool isCertain = false;
};

/// The transaction that a line of a statement may be recorded as.
struct CVFoundLine {
    /// In the recorded lines; absent when there is none.
    std::optional<std::size_t> recorded = {};
    /// Whether its payee is the same, or likely so.
    bool hasSamePayee = false;
};

/// Finds for each line the transaction of the same set and amount, at most four days apart, as which it may be recorded
/// already. A transaction counts once: for the line whose payee is the same before others whose payee is like, then for
/// those with other payees; each time for a line of the same day before one of further days, and for an earlier line
/// before a later one.
[[nodiscard]] std::vector<CVFoundLine> CVFindRecorded(const std::vector<CVSoughtLine>& lines,
                                                      const CVRecordedLines& recorded);
