#include "storage/CVDocumentParserDelegate.h"

#include "base/QBNumberText.h"
#include "base/QBXMLText.h"
#include "model/CVAttribute.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"
#include "storage/CVExaminedSource.h"

#include <cstring>
#include <string_view>
#include <utility>

namespace {

/// Whether an element of that name begins a record of its own.
bool isRecord(const char* name) {
    return CVIsNamed(name, "Transaction") || CVIsNamed(name, "Category") || CVIsNamed(name, "TransactionSet");
}

} // namespace

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

void CVDocumentParserDelegate::setStoringCharacters(bool storing) {
    if (storing && _co_storing_characters && !_co_character_buffer.empty())
        mPartly.add(CVPartly::MisplacedText, line(), {}, _co_character_buffer);
    _co_storing_characters = storing;
}

void CVDocumentParserDelegate::setUnknownTag(const char* name) {
    mPartly.add(CVPartly::UnknownElement, line(), name, {});
    _co_unknown_tag = name;
}

void CVDocumentParserDelegate::notePartly(CVPartly what, const char* name, const char* value) {
    mPartly.add(what, line(), name, value ? value : "");
}

void CVDocumentParserDelegate::appendCharacters(const char* bytes, qsizetype length) {
    if (_co_is_parsing_unknown)
        return;
    const std::string_view text(bytes, static_cast<std::size_t>(length));
    if (_co_storing_characters)
        _co_character_buffer.append(text);
    else
        noteText(text);
}

/// Blanks between the elements say nothing.
void CVDocumentParserDelegate::noteText(std::string_view text) {
    if (mHasNotedText || text.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return;
    mHasNotedText = true;
    mPartly.add(CVPartly::Text, line(), {}, text);
}

QString CVDocumentParserDelegate::tempParsingString() {
    const CVTextPool::Text& known = mTexts.text(_co_character_buffer);
    if (!known.isWhole)
        mPartly.add(CVPartly::Character, line(), {}, _co_character_buffer);
    _co_character_buffer.clear();
    return known.text;
}

double CVDocumentParserDelegate::tempParsingStringDoubleValue() {
    return QBNumberText::leadingDouble(std::exchange(_co_character_buffer, {}));
}

void CVDocumentParserDelegate::startElement(const char* name, CVXMLAttributes attributes) {
    if (_co_is_parsing_unknown)
        return;
    mHasNotedText = false;
    if (CVParsingObject* const current = currentParsingObject()) {
        current->parsingDelegateStartElement(*this, name, attributes);
        // A record of another kind within this one has been noted as unknown.
        if (current == currentParsingObject() && current != this && !_co_is_parsing_unknown && isRecord(name))
            mPartly.add(CVPartly::Repeated, line(), name, {});
        return;
    }
    if (!CVIsNamed(name, "CorvellaDocument")) {
        mPartly.add(CVPartly::UnknownElement, line(), name, {});
        return;
    }
    for (; attributes && *attributes; attributes += 2) {
        if (CVIsNamed(*attributes, "xmlns"))
            _co_file_version = xml_decodedFromXML(QString::fromUtf8(attributes[1]));
        // These name the program that wrote the file, which is this one after a save.
        const bool isOfWriter =
            CVIsNamed(*attributes, "os") || CVIsNamed(*attributes, "app") || CVIsNamed(*attributes, "app_version");
        if (!isOfWriter)
            notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
    }
    mFoundRoot = true;
    pushParsingObject(this);
}

void CVDocumentParserDelegate::endElement(const char* name) {
    mHasNotedText = false;
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
        noteRepeatedID(*category, name, mCategoryIDs);
        document->addCategory(category);
    } else if (CVIsNamed(name, "TransactionSet")) {
        const auto set = std::make_shared<CVTransactionSet>();
        begin(*set, name, attributes);
        noteRepeatedID(*set, name, mSetIDs);
        document->transactionSets().push_back(set);
    } else if (CVIsNamed(name, "MiscInfo")) {
        readMiscInfo(attributes);
    } else {
        mPartly.add(CVPartly::UnknownElement, line(), name, {});
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

/// The document keeps only the first record of each ID.
template <typename Record>
void CVDocumentParserDelegate::noteRepeatedID(const Record& record, const char* name,
                                              std::unordered_set<quint32>& known) {
    if (!known.insert(record.uniqueID()).second)
        notePartly(CVPartly::RepeatedID, name, QByteArray::number(record.uniqueID()).constData());
}

void CVDocumentParserDelegate::readMiscInfo(CVXMLAttributes attributes) {
    if (std::exchange(mFoundMiscInfo, true))
        notePartly(CVPartly::Repeated, "MiscInfo", nullptr);
    for (; attributes && *attributes; attributes += 2) {
        if (CVIsNamed(*attributes, "id"))
            document->setUniqueID(CVAttribute::toUnsigned(*this, attributes));
        else if (CVIsNamed(*attributes, "current_transaction_set_id"))
            document->setCurrentTransactionSet(CVAttribute::toUnsigned(*this, attributes));
        else
            notePartly(CVPartly::UnknownAttribute, attributes[0], attributes[1]);
    }
}
