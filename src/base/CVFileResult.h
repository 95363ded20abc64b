#pragma once

#include <QString>

/// What became of an operation on a file: nothing to say when it succeeded, else a reason for a person.
struct CVFileResult {
    QString error;

    [[nodiscard]] bool ok() const { return error.isEmpty(); }
    /// Whether the reason is that the disk has no room left.
    [[nodiscard]] bool diskIsFull() const;

    /// The reason that the last call of the C library left behind.
    [[nodiscard]] static CVFileResult ofLastCall();
};
