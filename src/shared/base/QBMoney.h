#pragma once

#include <QtGlobal>

/// From here on a double holds no cents that a product by 100 would keep exactly enough.
inline constexpr double kQBNoCentsFrom = 4.5e13;

/// `value` rounded to two decimal places, halves away from zero, never to a negative zero. Infinities, NaN and
/// magnitudes from 4.5e13 on come back as they are. Here for its callers' inner loops: every sum that is shown, and
/// every step of some, passes through it.
[[nodiscard]] inline double RoundDoubleToTwoPlaces(double value) {
    if (!(value > -kQBNoCentsFrom && value < kQBNoCentsFrom))
        return value;
    const double scaled = value * 100.0;
    const auto whole = static_cast<qint64>(scaled);
    const double rest = scaled - static_cast<double>(whole);
    return static_cast<double>(whole + (rest >= 0.5 ? 1 : 0) - (rest <= -0.5 ? 1 : 0)) / 100.0;
}
