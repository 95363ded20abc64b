#pragma once

#include "importing/CVImportLine.h"
#include "importing/statements/CVStatementLine.h"
#include "kit/BudgetBuilder.h"

/// A line of a statement; money out is negative.
[[nodiscard]] inline CVStatementLine statementLine(int number, const QBDate& day, qint64 hundredths,
                                                   const QString& payee) {
    CVStatementLine line;
    line.number = number;
    line.day = day;
    line.hundredths = hundredths;
    line.payee = payee;
    return line;
}

/// A checked line of money out.
[[nodiscard]] inline CVImportLine importLine(const QBDate& day, qint64 hundredths, const QString& payee,
                                             const QString& category) {
    CVImportLine line;
    line.number = 2;
    line.day = day;
    line.dayInStatement = day;
    line.hundredths = hundredths;
    line.payee = payee;
    line.payeeInStatement = payee;
    line.category = category;
    return line;
}

/// The whole text of its data file, but for the last ID that was issued.
[[nodiscard]] QByteArray textButForLastID(CVDocument& document);
