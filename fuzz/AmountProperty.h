#pragma once

#include <QByteArray>
#include <QString>

/// What holds for any text that is typed as an amount, in the locale that the first byte chooses: it is an amount, the
/// result of arithmetic or neither; an amount is finite, and what is written of it reads back as what was written. Null
/// when all of it held, else a sentence that says what did not.
[[nodiscard]] QString brokenAmountProperty(const QByteArray& bytes);
