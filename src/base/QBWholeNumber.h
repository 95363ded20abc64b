#pragma once

#include <QtGlobal>

/// Reads numbers of the data file as `QBNumberText` does and tells whether the text says nothing else, so that the
/// number can be written in its place. A text without a character says nothing.
namespace QBWholeNumber {

template <typename Number>
struct Reading {
    Number number = 0;
    bool isWhole = true;
};

/// As `QBNumberText::leadingUnsigned`. Not whole beyond 32 bits and below 0.
[[nodiscard]] Reading<quint32> readUnsigned(const char* text);
/// As `QBNumberText::leadingDouble`. Whole when the text that `QBNumberText::writeMoney` makes of the number has the
/// same value to the last digit: not with a part of a cent, nor with more digits than a double keeps.
[[nodiscard]] Reading<double> readMoney(const char* text);

} // namespace QBWholeNumber
