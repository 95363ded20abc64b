#pragma once

#include "model/CVParsing.h"

class CVDocument;

/// A named group of transactions, such as one account. Owned by its document; transactions refer to it by ID.
/// ID 0 also stands for the transactions that were entered while there was no set.
class CVTransactionSet final : public CVParsingObject {
public:
    /// Null until the set is named.
    [[nodiscard]] const QString& transactionSetName() const { return mName; }
    [[nodiscard]] quint32 uniqueID() const { return mUniqueID; }
    [[nodiscard]] CVDocument* document() const { return mDocument; }

    /// Removes from the name what XML cannot carry. Announces nothing.
    void setTransactionSetName(const QString& name);
    void setUniqueID(quint32 id) { mUniqueID = id; }
    void setDocument(CVDocument* document) { mDocument = document; }

    /// The element text, without a line feed.
    [[nodiscard]] QByteArray xmlRepresentation() const;

    void parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                     CVXMLAttributes attributes) override;
    void parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) override;

private:
    QString mName;
    quint32 mUniqueID = 0;
    CVDocument* mDocument = nullptr;
};
