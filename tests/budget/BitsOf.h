#pragma once

#include <QtGlobal>

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <ios>

/// Whether both numbers have the same bits, the sign of a zero included. Every NaN counts as the same.
[[nodiscard]] inline bool sameBits(double a, double b) {
    return std::isnan(a) ? std::isnan(b) : std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
}

MATCHER_P(BitsOf, expected, "the bits of " + testing::PrintToString(expected)) {
    *result_listener << std::hexfloat << "as " << arg << " against " << expected;
    return sameBits(arg, expected);
}
