#pragma once

#include "base/QBDate.h"

#include <QByteArray>

#include <optional>
#include <string_view>

/// Days and amounts for other programs, the same in every locale.
namespace CVTransferValues {

/// "2026-11-22"; empty without a day.
[[nodiscard]] QByteArray textOfDay(const std::optional<QBDate>& day);
/// The day of which `textOfDay` makes this text; absent for any other text, also for an empty one.
[[nodiscard]] std::optional<QBDate> dayOfText(std::string_view text);

/// The shortest text without an exponent that reads as the same double: "12.5". "Infinity", "-Infinity" and "NaN" for
/// what has no digits.
[[nodiscard]] QByteArray textOfAmount(double amount);
/// Absent where the text says anything but one number, or one beyond the range of doubles. "NaN" is none, because no
/// transaction can have it.
[[nodiscard]] std::optional<double> amountOfText(std::string_view text);

} // namespace CVTransferValues
