#include "model/CVDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVFileExamination.h"
#include "storage/CVStorageLog.h"

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <exception>

/// The part of the parser that drives libxml2's SAX interface.

namespace {

/// A damaged file can raise an error per character; the log needs only the first of them.
constexpr int kLoggedErrors = 20;

/// In bytes; the average transaction of few budgets is shorter.
constexpr qsizetype kUsualTransaction = 160;

/// Drops the errors that libxml2 reports without a parser, such as those of a text in another encoding; they would go
/// to standard error.
class CVQuietLibxml final {
public:
    CVQuietLibxml() { xmlSetGenericErrorFunc(nullptr, drop); }
    ~CVQuietLibxml() { xmlSetGenericErrorFunc(nullptr, nullptr); }
    CVQuietLibxml(const CVQuietLibxml&) = delete;
    CVQuietLibxml& operator=(const CVQuietLibxml&) = delete;

private:
    static void drop(void* /*context*/, const char* /*format*/, ...) {}
};

} // namespace

/// The callbacks given to libxml2, which passes the parser as its user data. No exception leaves them: an exception,
/// such as one for lack of memory, makes the whole read fail.
struct CVDocumentParserCallbacks {
    static const char* text(const xmlChar* characters) { return reinterpret_cast<const char*>(characters); }

    template <typename Action>
    static void run(void* context, Action action) noexcept {
        auto& parser = *static_cast<CVDocumentParserDelegate*>(context);
        if (parser.mGaveUp)
            return;
        try {
            action(parser);
        } catch (const std::exception&) {
            parser.mGaveUp = true;
        }
    }

    static xmlEntityPtr getEntity(void* /*context*/, const xmlChar* name) { return xmlGetPredefinedEntity(name); }

    static void startElement(void* context, const xmlChar* name, const xmlChar** attributes) {
        run(context,
            [=](auto& parser) { parser.startElement(text(name), reinterpret_cast<CVXMLAttributes>(attributes)); });
    }

    static void endElement(void* context, const xmlChar* name) {
        run(context, [=](auto& parser) { parser.endElement(text(name)); });
    }

    static void characters(void* context, const xmlChar* bytes, int length) {
        run(context, [=](auto& parser) { parser.appendCharacters(text(bytes), length); });
    }

    static void error(void* context, const char* format, ...) {
        std::array<char, 1024> message{};
        std::va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(message.data(), message.size(), format, arguments);
        va_end(arguments);
        const auto* const details = xmlGetLastError();
        run(context, [&](auto& parser) { parser.noteError(message.data(), details ? details->line : 0); });
    }

    static xmlSAXHandler handler() {
        xmlSAXHandler handler{};
        handler.getEntity = getEntity;
        handler.startElement = startElement;
        handler.endElement = endElement;
        handler.characters = characters;
        handler.error = error;
        // Not XML_SAX2_MAGIC, with which libxml2 would silently ignore these SAX 1 element callbacks.
        handler.initialized = 1;
        return handler;
    }
};

bool CVDocumentParserDelegate::parseDocumentData() {
    if (!document)
        return false;
    if (!_co_decrypted_data && !_co_encrypted_data) {
        document->reset_to_default_info();
        return true;
    }
    document->beginParsingData();
    const int result = parsePlainBytes();
    _co_decrypted_data.reset();
    mTexts = {};
    if (mWasCancelled) {
        mErrorMessage = tr("the reading was cancelled");
        return false;
    }
    if (result != 0) {
        qCWarning(lcStorage, "Document parsing error %u", static_cast<unsigned>(result));
        mErrorMessage = malformedMessage();
        document->reset_to_default_info();
        return false;
    }
    document->finishedParsingData();
    return true;
}

int CVDocumentParserDelegate::parsePlainBytes() {
    const QByteArray bytes = _co_decrypted_data.value_or(QByteArray());
    CVFileExamination examination;
    examination.add(bytes);
    mHoldsNul = examination.holdsNul();
    mIsUtf32 = examination.isUtf32();
    if (examination.hasAbsurdElement()) {
        mFirstError = tr("an element has more than %1 attributes").arg(CVFileExamination::kMostAttributes);
        return XML_ERR_INTERNAL_ERROR;
    }
    mExpectedTransactions = static_cast<double>(bytes.size()) / static_cast<double>(kUsualTransaction);
    xmlSAXHandler handler = CVDocumentParserCallbacks::handler();
    CVDocumentParserCallbacks::run(this, [&bytes](auto& parser) {
        parser.document->reserveTransactions(static_cast<std::size_t>(bytes.size() / kUsualTransaction));
    });
    const CVQuietLibxml quiet;
    const int result = xmlSAXUserParseMemory(&handler, this, bytes.constData(), static_cast<int>(bytes.size()));
    return mGaveUp ? XML_ERR_NO_MEMORY : result;
}

QString CVDocumentParserDelegate::malformedMessage() const {
    if (mGaveUp)
        return tr("there was not enough memory to read the file");
    if (mIsUtf32)
        return tr("the file is written in UTF-32, which Corvella does not read; save it as UTF-8 in the program that "
                  "wrote it");
    if (mFirstError.isEmpty())
        return tr("the file is damaged");
    if (mErrorLine == 0)
        return tr("the file is damaged: %1").arg(mFirstError);
    return tr("the file is damaged at line %1: %2").arg(mErrorLine).arg(mFirstError);
}

void CVDocumentParserDelegate::noteError(const char* message, int line) {
    const QString text = QString::fromUtf8(message).simplified();
    if (mErrorCount++ == 0) {
        mErrorLine = line;
        mFirstError = text;
    }
    if (mErrorCount <= kLoggedErrors)
        qCWarning(lcStorage, "%s", qUtf8Printable(text));
}
