#pragma once

#include <QPalette>

/// The colour of a text on the ground of lists and fields that steps back behind their contents, such as the message of
/// an empty list. It keeps two thirds of the difference between text and ground, so that it is readable; the colour of
/// disabled texts is not.
[[nodiscard]] QColor CVQuietTextColour(const QPalette& palette);
