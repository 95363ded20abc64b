#pragma once

#include "generator/CVDetachedDocument.h"

#include <QTemporaryDir>

#include <cstddef>

/// The budget of a given size that all benchmarks use, the same on every day.
class CVBudgetFixture final {
public:
    explicit CVBudgetFixture(std::size_t transactions);

    [[nodiscard]] CVDocument& document() { return *mDocument; }
    /// The text of the budget's data file.
    [[nodiscard]] QByteArray text();

private:
    CVDetachedDocument mDocument;
};

/// A folder on the same disk as the program, because the folder for temporary files may be in memory. The folder is
/// removed at the end.
class CVScratchFolder final {
public:
    CVScratchFolder();

    [[nodiscard]] QString file(const char* name) const { return mFolder.filePath(QLatin1String(name)); }

private:
    QTemporaryDir mFolder;
};
