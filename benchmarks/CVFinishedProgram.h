#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

/// What a program took from its start to its end.
struct CVFinishedProgram {
    /// Seconds of CPU, user and system.
    double seconds = 0;

    /// Runs a program with its output going nowhere. The first word is its path. Absent when it did not end with 0.
    [[nodiscard]] static std::optional<CVFinishedProgram> run(std::vector<QByteArray> words);
};

/// The most memory, in bytes, that a program has from its start to its end; absent when it did not end with 0. A small
/// program starts it, because a started program counts with what its starter has at that moment.
[[nodiscard]] std::optional<double> CVPeakMemoryOf(const QStringList& words);
