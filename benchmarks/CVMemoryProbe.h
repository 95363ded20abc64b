#pragma once

#include <QString>

#include <optional>

/// The resident memory of this process in bytes.
[[nodiscard]] double CVReadResidentMemory();

/// The additional resident memory of a process in bytes, compared with its memory before it loaded a budget.
struct CVMemoryUse {
    double loaded;
    double loadingPeak;
    double saved;
};

/// Measures a separate process that loads `file` and saves it to `copy`; absent when that failed.
[[nodiscard]] std::optional<CVMemoryUse> CVProbeMemory(const QString& file, const QString& copy);

/// Does the work of the separate process and returns its exit status; absent when this process was not started for it.
[[nodiscard]] std::optional<int> CVRunMemoryProbe(const QStringList& arguments);
