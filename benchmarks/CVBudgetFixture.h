#pragma once

#include "model/CVDetachedDocument.h"

#include <QTemporaryDir>

#include <cstddef>

/// The budget of that size with which all measurements are taken, the same on every day.
class CVBudgetFixture final {
public:
    explicit CVBudgetFixture(std::size_t transactions);

    [[nodiscard]] CVDocument& document() { return *mDocument; }
    /// The text of its data file.
    [[nodiscard]] QByteArray text();

private:
    CVDetachedDocument mDocument;
};

/// A folder on the disk that the program stands on (the one for temporary files may be in memory), removed in the end.
class CVScratchFolder final {
public:
    CVScratchFolder();

    [[nodiscard]] QString file(const char* name) const { return mFolder.filePath(QLatin1String(name)); }

private:
    QTemporaryDir mFolder;
};
