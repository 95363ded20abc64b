#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

/// What a program took from its start to its end.
struct CVFinishedProgram {
    /// Seconds of CPU, user and system.
    double seconds = 0;
    /// Bytes.
    double peakMemory = 0;

    /// Runs a program with its output going nowhere. The first word is its path. Absent when it did not end with 0.
    [[nodiscard]] static std::optional<CVFinishedProgram> run(std::vector<QByteArray> words);
};
