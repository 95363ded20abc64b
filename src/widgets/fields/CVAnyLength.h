#pragma once

#include <QLineEdit>

#include <limits>

/// For every field that edits or shows a text of the data file: the toolkit's fields cut longer texts without a word.
inline void CVTakeAnyLength(QLineEdit& field) {
    field.setMaxLength(std::numeric_limits<int>::max());
}
