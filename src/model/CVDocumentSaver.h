#pragma once

class CVDocument;

/// Where a document sends itself to be kept; the storage floor implements it.
class CVDocumentSaver {
public:
    /// Begins to save the document's present state and returns true at once; the outcome is announced by the saver.
    virtual bool workbookSave(CVDocument& document) = 0;

protected:
    ~CVDocumentSaver() = default;
};
