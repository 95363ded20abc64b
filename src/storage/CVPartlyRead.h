#pragma once

#include <QStringList>

/// How much of a file this program holds in its memory.
enum class CVReadAs : bool {
    Whole,
    /// Some of what stands in the file will not be written again.
    Partly
};

/// What a data file holds and this program will not write again: values that were read only in part, and what was left
/// out.
struct CVPartlyRead {
    qint64 count = 0;
    /// The first of them, each a sentence for the user with the number of its line.
    QStringList lines = {};

    [[nodiscard]] CVReadAs readAs() const { return count > 0 ? CVReadAs::Partly : CVReadAs::Whole; }
};
