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
    /// Sets the files that are reported as data files.
    void setDataFiles(const QStringList& files) { mDataFiles = files; }
    [[nodiscard]] bool isReadOnly() const override { return mIsReadOnly; }
    void setReadOnly() { mIsReadOnly = true; }
    [[nodiscard]] int count() const { return mCount; }

private:
    QStringList mDataFiles;
    int mCount = 0;
    bool mIsReadOnly = false;
};
