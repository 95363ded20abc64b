#pragma once

#include <string_view>

/// Applies the steps in a text to an amount, from left to right: "x52 /24" multiplies by 52, then divides by 24; "-"
/// leaves the amount unchanged. Any other text stops the test program.
[[nodiscard]] double carriedOut(std::string_view steps, double amount);
