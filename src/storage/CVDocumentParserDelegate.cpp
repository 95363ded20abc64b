#include "storage/CVDocumentParserDelegate.h"

#include "base/QBNumberText.h"
#include "base/QBXMLText.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"
#include "storage/CVExaminedSource.h"

#include <cstring>
#include <string_view>
#include <utility>

CVDocumentParserDelegate::CVDocumentParserDelegate(CVDocument* target) : document(target) {
    _co_parsing_object_stack.reserve(5);
}

CVDocumentParserDelegate::~CVDocumentParserDelegate() = default;

bool CVDocumentParserDelegate::decryptWithKey(const QString& /*key*/) const {
    return _co_decrypted_data.has_value();
}

void CVDocumentParserDelegate::pushParsingObject(CVParsingObject* object) {
    _co_parsing_object_stack.push_back(object);
}

void CVDocumentParserDelegate::popParsingObjectForEndingElement(const char* /*name*/) {
    if (!_co_parsing_object_stack.empty())
        _co_parsing_object_stack.pop_back();
}

CVParsingObject* CVDocumentParserDelegate::currentParsingObject() const {
    return _co_parsing_object_stack.empty() ? nullptr : _co_parsing_object_stack.back();
}

void CVDocumentParserDelegate::appendCharacters(const char* bytes, qsizetype length) {
    if (_co_storing_characters && !_co_is_parsing_unknown)
        _co_character_buffer.append(bytes, static_cast<std::size_t>(length));
}

QString CVDocumentParserDelegate::tempParsingString() {
    QString text = mTexts.text(_co_character_buffer);
    _co_character_buffer.clear();
    return text;
}

double CVDocumentParserDelegate::tempParsingStringDoubleValue() {
    return QBNumberText::leadingDouble(std::exchange(_co_character_buffer, {}));
}

void CVDocumentParserDelegate::startElement(const char* name, CVXMLAttributes attributes) {
    if (_co_is_parsing_unknown)
        return;
    if (CVParsingObject* const current = currentParsingObject()) {
        current->parsingDelegateStartElement(*this, name, attributes);
        return;
    }
    if (!CVIsNamed(name, "CorvellaDocument"))
        return;
    for (; attributes && *attributes; attributes += 2) {
        if (CVIsNamed(*attributes, "xmlns"))
            _co_file_version = xml_decodedFromXML(QString::fromUtf8(attributes[1]));
    }
    mFoundRoot = true;
    pushParsingObject(this);
}

void CVDocumentParserDelegate::endElement(const char* name) {
    CVParsingObject* const current = currentParsingObject();
    if (!current)
        return;
    // Compares only as many characters as the skipped name has. An inner element whose name begins with that name
    // therefore ends the skipping early; that is deliberate.
    if (current != this && _co_is_parsing_unknown) {
        if (std::strncmp(name, _co_unknown_tag.constData(), static_cast<std::size_t>(_co_unknown_tag.size())) == 0) {
            _co_is_parsing_unknown = false;
            _co_unknown_tag.clear();
        }
    } else {
        current->parsingDelegateEndElement(*this, name);
    }
    _co_storing_characters = false;
}

/// Reads the elements inside the root. Skips an element of another name but not its children, which count as the
/// root's.
void CVDocumentParserDelegate::parsingDelegateStartElement(CVParsingDelegate& /*delegate*/, const char* name,
                                                           CVXMLAttributes attributes) {
    if (CVIsNamed(name, "Transaction")) {
        auto transaction = mTransactions.next();
        begin(*transaction, name, attributes);
        document->addTransaction(std::move(transaction));
    } else if (CVIsNamed(name, "Category")) {
        const auto category = std::make_shared<CVCategory>(mToday);
        begin(*category, name, attributes);
        document->addCategory(category);
    } else if (CVIsNamed(name, "TransactionSet")) {
        const auto set = std::make_shared<CVTransactionSet>();
        begin(*set, name, attributes);
        document->transactionSets().push_back(set);
    } else if (CVIsNamed(name, "MiscInfo")) {
        readMiscInfo(attributes);
    }
}

void CVDocumentParserDelegate::parsingDelegateEndElement(CVParsingDelegate& /*delegate*/, const char* name) {
    if (CVIsNamed(name, "CorvellaDocument"))
        popParsingObjectForEndingElement(name);
}

template <typename Record>
void CVDocumentParserDelegate::begin(Record& record, const char* name, CVXMLAttributes attributes) {
    record.setDocument(document);
    pushParsingObject(&record);
    record.parsingDelegateStartElement(*this, name, attributes);
}

void CVDocumentParserDelegate::readMiscInfo(CVXMLAttributes attributes) {
    for (; attributes && *attributes; attributes += 2) {
        if (CVIsNamed(*attributes, "id"))
            document->setUniqueID(QBNumberText::leadingUnsigned(attributes[1]));
        else if (CVIsNamed(*attributes, "current_transaction_set_id"))
            document->setCurrentTransactionSet(QBNumberText::leadingUnsigned(attributes[1]));
    }
}
