#pragma once

#include <QLineEdit>

#include <limits>

/// Lets a field hold a text of any length. Every field that edits or shows a text of the data file needs this, because
/// the toolkit's line edits silently cut longer texts.
inline void CVAllowAnyLength(QLineEdit& field) {
    field.setMaxLength(std::numeric_limits<int>::max());
}
