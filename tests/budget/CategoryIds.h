#pragma once

#include <QtGlobal>

/// The two categories that small budgets of these tests are made of.
inline constexpr quint32 kFood = 1;
inline constexpr quint32 kCar = 2;
