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
    /// The set in which it would stand with the other sign: that of the money in for money out and the other way round,
    /// as a refund that somebody has moved. Absent where there is none.
    std::optional<quint32> setOfOtherSide = {};
    /// Whether it is recorded for certain, because the bank's number of it was seen before. Then it takes no
    /// transaction of another payee.
    bool isCertain = false;
};

/// What a line of a statement may be recorded as.
struct CVFoundLine {
    /// In the recorded lines: none, one, or the parts of a line that was split.
    std::vector<std::size_t> recorded = {};
    /// Whether its payee is the same, or likely so.
    bool hasSamePayee = false;
};

/// Finds for each line the transaction of the same set and amount, at most four days apart, as which it may be recorded
/// already; else that with the other sign in the set of the other side; else transactions of one day, set and payee,
/// the same or like, that add up to the amount. A transaction counts once: for the line whose payee is the same before
/// others whose payee is like, then for those with other payees; each time for a line of the same day before one of
/// further days, and for an earlier line before a later one.
[[nodiscard]] std::vector<CVFoundLine> CVFindRecorded(const std::vector<CVSoughtLine>& lines,
                                                      const CVRecordedLines& recorded);
