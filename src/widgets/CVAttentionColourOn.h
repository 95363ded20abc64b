#pragma once

#include <QPalette>

/// The red that marks what needs attention: dark on a light background and light on a dark one, so that it is readable
/// on both.
[[nodiscard]] QColor CVAttentionColourOn(const QPalette& palette, QPalette::ColorRole ground);
