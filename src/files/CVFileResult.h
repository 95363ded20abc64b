#pragma once

#include <QString>

/// The outcome of an operation on a file: an empty error on success, else a reason that a person can read.
struct CVFileResult {
    QString error;

    [[nodiscard]] bool ok() const { return error.isEmpty(); }
    /// Whether the reason is that the disk has no room left.
    [[nodiscard]] bool diskIsFull() const;

    /// Whether a call failed with this `errno` because the file system, the kernel or a sandbox does not know it.
    [[nodiscard]] static bool isUnknownCall(int error);
    /// The failure of the last call of the C library, with the reason in `errno`.
    [[nodiscard]] static CVFileResult ofLastCall();
};
