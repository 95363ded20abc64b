#pragma once

#include <QStringList>

/// The copies that synchronizers leave beside a data file when it was changed at two places at once, known by their
/// names: "NAME (Anna's conflicted copy 2026-11-22).SUFFIX", "NAME.sync-conflict-20261122-101530-ABCDEFG.SUFFIX".
namespace CVConflictCopies {

/// Their absolute paths, by name. Nothing that Corvella keeps itself is among them.
[[nodiscard]] QStringList beside(const QString& dataFile);
/// Whether a file of that name is such a copy of `dataFile`, of which only the name counts.
[[nodiscard]] bool isNameOfOne(const QString& fileName, const QString& dataFile);

} // namespace CVConflictCopies
