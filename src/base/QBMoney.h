#pragma once

#include <QtGlobal>

/// From 2^45 (about 35 million million) on, neighbouring doubles lie so far apart that rounding a rounded value could
/// change it.
inline constexpr double kQBNoCentsFrom = 0x1p45;

/// `value` rounded to two decimal places, halves away from zero, never to a negative zero. Rounding again changes
/// nothing. Infinities, NaN and magnitudes from 2^45 on come back as they are.
[[nodiscard]] inline double RoundDoubleToTwoPlaces(double value) {
    if (!(value > -kQBNoCentsFrom && value < kQBNoCentsFrom))
        return value;
    const double scaled = value * 100.0;
    const auto whole = static_cast<qint64>(scaled);
    const double rest = scaled - static_cast<double>(whole);
    return static_cast<double>(whole + (rest >= 0.5 ? 1 : 0) - (rest <= -0.5 ? 1 : 0)) / 100.0;
}
