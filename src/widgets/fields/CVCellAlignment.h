#pragma once

#include <Qt>

/// How tables and fields place what they show: texts begin at the left, numbers end at the right.
inline constexpr Qt::Alignment kCVTextAlignment = Qt::AlignLeft | Qt::AlignVCenter;
inline constexpr Qt::Alignment kCVNumberAlignment = Qt::AlignRight | Qt::AlignVCenter;
