#include "model/CVTransactionSet.h"

#include "shared/base/QBNumberText.h"
#include "shared/base/QBXMLText.h"

#include <cstring>

void CVTransactionSet::setTransactionSetName(const QString& name) {
    mName = xml_storableText(name);
}

QByteArray CVTransactionSet::xmlRepresentation() const {
    QByteArray text = "<TransactionSet id=\"" + QByteArray::number(mUniqueID) + "\">";
    xml_appendStringEncodedForXML(text, mName);
    return text + "</TransactionSet>";
}

void CVTransactionSet::parsingDelegateStartElement(CVParsingDelegate& delegate, const char* name,
                                                   CVXMLAttributes attributes) {
    if (std::strcmp(name, "TransactionSet") != 0) {
        delegate.setWorkingOnUnknownTag(true);
        delegate.setUnknownTag(name);
        return;
    }
    for (; attributes && *attributes; attributes += 2) {
        if (std::strcmp(*attributes, "id") == 0)
            mUniqueID = QBNumberText::leadingUnsigned(attributes[1]);
    }
    delegate.setStoringCharacters(true);
}

void CVTransactionSet::parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) {
    if (std::strcmp(name, "TransactionSet") != 0)
        return;
    mName = delegate.tempParsingString();
    delegate.popParsingObjectForEndingElement(name);
}
