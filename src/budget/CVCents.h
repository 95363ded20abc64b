#pragma once

#include <QtGlobal>

#include <cmath>

/// Amounts as whole cents, which add up without errors.
namespace CVCents {

/// `amount` is at most 2^38 away from zero.
[[nodiscard]] inline qint64 nearest(double amount) {
    const double scaled = amount * 100.0;
    return static_cast<qint64>(scaled + std::copysign(0.5, scaled));
}

/// The double next to that many cents.
[[nodiscard]] inline double inUnits(qint64 cents) {
    return static_cast<double>(cents) / 100.0;
}

} // namespace CVCents
