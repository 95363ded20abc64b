#pragma once

#include "model/CVDocumentSaver.h"

/// Counts the saves it is asked for.
class CountingSaver final : public CVDocumentSaver {
public:
    bool workbookSave(CVDocument& /*document*/) override {
        ++mCount;
        return true;
    }
    [[nodiscard]] int count() const { return mCount; }

private:
    int mCount = 0;
};
