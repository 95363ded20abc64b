#pragma once

#include <QStringList>

class CVDocument;

/// Saves a document; implemented by the storage, on which the model must not depend.
class CVDocumentSaver {
public:
    /// Begins to save the document's present state and returns true at once; the outcome is announced by the saver.
    virtual bool workbookSave(CVDocument& document) = 0;
    /// The paths at which a budget is or will be saved, which no output may take.
    [[nodiscard]] virtual QStringList dataFiles() const = 0;
    /// Where the next save writes, without looking at the disk; empty when there is no such place.
    [[nodiscard]] virtual QString placeForSaving() const { return dataFiles().value(0); }
    /// Whether the budget is only looked at: then nothing is saved, and nothing must be changed.
    [[nodiscard]] virtual bool isReadOnly() const { return false; }

protected:
    ~CVDocumentSaver() = default;
};
