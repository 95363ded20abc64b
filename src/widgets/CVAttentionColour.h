#pragma once

#include <QPalette>

/// The red that asks for attention, dark on a light ground and light on a dark one, so that it can be read on both.
[[nodiscard]] QColor CVAttentionColour(const QPalette& palette, QPalette::ColorRole ground);
