#pragma once

#include <QtGlobal>

#include <cstddef>
#include <string_view>

/// Numbers in the data file's own form, whatever the user's locale: decimal digits and a full stop. The writers put
/// their text at `out` and return the position after it; `out` must have room for the stated bound.
namespace QBNumberText {

inline constexpr std::size_t kIntegerBound = 20;
/// A double just below 2^1024 has 309 digits before the point.
inline constexpr std::size_t kMoneyBound = 320;

/// As printf's "%u".
[[nodiscard]] char* writeUnsigned(char* out, quint32 value);
/// As printf's "%.2f" in the C locale, bit for bit.
[[nodiscard]] char* writeMoney(char* out, double value);

/// The number with which `text` begins, after optional white space: the longest start that reads as a decimal number
/// with optional sign, fraction and exponent. 0 when there is none ("nan" and "inf" are none). A number beyond the
/// range of doubles reads as the largest double of that sign, which can be written back; a number too small for a
/// double reads as 0.
[[nodiscard]] double leadingDouble(std::string_view text);
/// The integer with which `text` begins, after optional white space and sign, reduced modulo 2^32; 0 when there is
/// none.
[[nodiscard]] quint32 leadingUnsigned(std::string_view text);

} // namespace QBNumberText
