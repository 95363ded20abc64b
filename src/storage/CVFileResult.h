#pragma once

#include <QString>

/// What became of an operation on a file: nothing to say when it succeeded, else a reason for a person.
struct CVFileResult {
    QString error;

    [[nodiscard]] bool ok() const { return error.isEmpty(); }
};
