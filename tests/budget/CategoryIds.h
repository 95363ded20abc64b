#pragma once

#include <QtGlobal>

/// The two categories of the small budgets in these tests.
inline constexpr quint32 kFood = 1;
inline constexpr quint32 kCar = 2;
