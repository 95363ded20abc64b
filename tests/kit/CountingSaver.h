#pragma once

#include "model/CVDocumentSaver.h"

/// Counts the saves it is asked for.
class CountingSaver final : public CVDocumentSaver {
public:
    bool workbookSave(CVDocument& /*document*/) override {
        ++mCount;
        return true;
    }
    [[nodiscard]] QStringList dataFiles() const override { return mDataFiles; }
    /// Where the budget is said to lie.
    void setDataFiles(const QStringList& files) { mDataFiles = files; }
    [[nodiscard]] int count() const { return mCount; }

private:
    QStringList mDataFiles;
    int mCount = 0;
};
