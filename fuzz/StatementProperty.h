#pragma once

#include <QByteArray>
#include <QString>

/// What holds for any bytes that are read as a statement: there is a problem, or every line has a day and an amount or
/// the reason why not; and with the mapping that was found the same lines are read without a question. Null when all of
/// it held, else a sentence that says what did not.
[[nodiscard]] QString brokenStatementProperty(const QByteArray& bytes);
