#pragma once

#include <QIcon>

/// Small pictures drawn in the text colour of the current palette, sharp at every size and scale.
namespace CVGlyph {

enum class Shape { Calendar, Check, Flag, Search };

[[nodiscard]] QIcon icon(Shape shape);

} // namespace CVGlyph
