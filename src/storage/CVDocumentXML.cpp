#include "storage/CVDocumentXML.h"

#include "base/CVBundle.h"
#include "base/QBXMLText.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <algorithm>

namespace {

constexpr const char* kXML_UTF8_EncodingString = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

QByteArray head(const CVDocument& document) {
    QByteArray text = CVBeginOfDocumentText();
    text += CVBundle::kIdentifier;
    text += '"';
    if (const QString version = CVBundle::versionText(); !version.isEmpty()) {
        text += " app_version=\"";
        xml_appendStringEncodedForXML(text, version);
        text += '"';
    }
    text += ">\n <MiscInfo id=\"" + QByteArray::number(document.uniqueID()) + "\" current_transaction_set_id=\"" +
            QByteArray::number(document.currentTransactionSet()) + "\" />\n";
    for (const auto& set : document.transactionSets())
        text += set->xmlRepresentation();
    return text;
}

QByteArray tail(const CVDocument& document) {
    QByteArray text;
    for (const auto& category : document.categories())
        text += category->xmlRepresentation();
    return text + "</CorvellaDocument>\n";
}

CVTextSlice place(CVTextArena& arena, const QByteArray& text) {
    return arena.add(text.size(), [&](char* out) { return std::copy(text.begin(), text.end(), out); });
}

} // namespace

CVDocumentText CVDocumentXMLRepresentation(const CVDocument& document) {
    CVTextArena arena;
    CVDocumentText text;
    text.append(place(arena, head(document)));
    for (const auto& transaction : document.transactions())
        text.append(transaction->xmlRepresentation(arena));
    text.append(place(arena, tail(document)));
    return text;
}

QByteArray CVBeginOfDocumentText() {
    return QByteArray(kXML_UTF8_EncodingString) + "<CorvellaDocument os=\"Mac OS X\" app=\"";
}
