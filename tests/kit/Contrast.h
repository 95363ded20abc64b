#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

/// How well one colour can be read on another, from 1 to 21: the ratio of their luminances as the guidelines for
/// accessible web pages define it.
inline double contrast(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// The least contrast at which everybody can read a text of usual size.
inline constexpr double kReadableContrast = 4.5;
