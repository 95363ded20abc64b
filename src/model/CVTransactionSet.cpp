#include "model/CVTransactionSet.h"

#include "base/QBXMLText.h"
#include "model/CVAttribute.h"

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
    if (!CVIsNamed(name, "TransactionSet")) {
        delegate.setWorkingOnUnknownTag(true);
        delegate.setUnknownTag(name);
        return;
    }
    for (; attributes && *attributes; attributes += 2) {
        if (CVIsNamed(*attributes, "id"))
            mUniqueID = CVAttribute::toUnsigned(delegate, attributes);
        else
            delegate.notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
    }
    delegate.setStoringCharacters(true);
}

void CVTransactionSet::parsingDelegateEndElement(CVParsingDelegate& delegate, const char* name) {
    if (!CVIsNamed(name, "TransactionSet"))
        return;
    mName = delegate.tempParsingString();
    delegate.popParsingObjectForEndingElement(name);
}
