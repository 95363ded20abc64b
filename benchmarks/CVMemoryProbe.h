#pragma once

#include <QString>

#include <optional>

/// Resident memory of this process in bytes.
[[nodiscard]] double CVResidentMemory();

/// Resident memory of a process in bytes beyond what it had before it loaded a budget.
struct CVMemoryUse {
    double loaded;
    double loadingPeak;
    double saved;
};

/// Loads the file in a process of its own, saves it to `copy`, and tells what that took; absent when it failed.
[[nodiscard]] std::optional<CVMemoryUse> CVProbeMemory(const QString& file, const QString& copy);

/// The work of that process: its exit status, or absent when this process was not started for it.
[[nodiscard]] std::optional<int> CVRunMemoryProbe(const QStringList& arguments);
