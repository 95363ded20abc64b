#pragma once

#include <string_view>

/// Carries out the steps that a text names, one after the other: "x52 /24" multiplies by 52, then divides by 24, and
/// "-" leaves the amount alone. Stops the test program at anything else.
[[nodiscard]] double carriedOut(std::string_view steps, double amount);
