#pragma once

#include <Qt>

/// The alignment in tables and fields: texts at the left, numbers at the right.
inline constexpr Qt::Alignment kCVTextAlignment = Qt::AlignLeft | Qt::AlignVCenter;
inline constexpr Qt::Alignment kCVNumberAlignment = Qt::AlignRight | Qt::AlignVCenter;
