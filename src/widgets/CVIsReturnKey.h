#pragma once

#include <Qt>

/// Whether a key is Return or the Enter key of the keypad, which have the same effect everywhere.
[[nodiscard]] inline bool CVIsReturnKey(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}
