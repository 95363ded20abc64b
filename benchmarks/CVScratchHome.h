#pragma once

#include "CVBudgetFixture.h"
#include "storage/CVStandardDataFile.h"

#include <QProcessEnvironment>

#include <memory>

class QSettings;

/// The folders of a user who has a budget of that size and nothing else; removed in the end.
class CVScratchHome final {
public:
    explicit CVScratchHome(std::size_t transactions);

    /// For the program in this process.
    [[nodiscard]] CVStandardFolders folders() const;
    [[nodiscard]] std::unique_ptr<QSettings> settings() const;
    /// For a program in a process of its own.
    [[nodiscard]] QProcessEnvironment environment() const;

    [[nodiscard]] QString dataFile() const;
    [[nodiscard]] QByteArray text() const;

private:
    CVScratchFolder mFolder;
};
