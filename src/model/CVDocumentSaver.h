#pragma once

#include <QStringList>

class CVDocument;

/// Saves a document; implemented by the storage, on which the model must not depend.
class CVDocumentSaver {
public:
    /// Begins to save the document's present state and returns true at once; the outcome is announced by the saver.
    virtual bool workbookSave(CVDocument& document) = 0;
    /// Where a budget lies or is to be kept: no output may take these places.
    [[nodiscard]] virtual QStringList dataFiles() const = 0;

protected:
    ~CVDocumentSaver() = default;
};
