#pragma once

#include "base/QBDate.h"
#include "importing/CVCategoryMemory.h"

#include <QString>

#include <optional>
#include <vector>

/// A line of a statement as it will be recorded.
struct CVImportLine {
    enum class Note { None, RecordedAlready, PerhapsRecorded, NoCategory, Unreadable, LeftOutBefore };

    /// Whether it is to be recorded.
    bool checked = true;
    /// The line of the file, from 1.
    int number = 0;
    /// Absent where the line cannot be read.
    std::optional<QBDate> day = {};
    /// As the budget has it: money out is positive, money in too where it has a set of its own, else negative.
    qint64 hundredths = 0;
    /// Whether it is money in and goes where the targets say.
    bool isIncome = false;
    QString payee = {};
    QString xfor = {};
    /// The name of a category, which need not exist yet.
    QString category = {};
    CVSureness sure = CVSureness::None;
    /// The transactions from which the category comes.
    CVTransactions from = {};
    QString bankID = {};
    /// The currency of the amount where the statement is in another one; else empty.
    QString otherCurrency = {};
    Note note = Note::None;
    /// One line without a full stop; empty when there is nothing to say.
    QString noteText = {};
    /// The transaction as which it was recorded, or perhaps, or several that are its parts; empty where there is none.
    CVTransactions recorded = {};
    /// The payee in the words of the statement.
    QString payeeInStatement = {};
    /// The day in the statement, with which the bank's number is one of its own. Absent where the line cannot be read.
    std::optional<QBDate> dayInStatement = {};
};

using CVImportLines = std::vector<CVImportLine>;
