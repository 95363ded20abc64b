#include "importing/ImportFixtures.h"

#include "storage/CVDocumentXML.h"

QByteArray textButForLastID(CVDocument& document) {
    const quint32 last = document.uniqueID();
    document.setUniqueID(0);
    QByteArray text = CVDocumentXMLRepresentation(document).joined();
    document.setUniqueID(last);
    return text;
}
