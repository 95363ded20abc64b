#include "model/CVDocument.h"
#include "storage/CVDocumentParserDelegate.h"
#include "storage/CVExaminedSource.h"
#include "storage/CVStorageLog.h"

#include <QBuffer>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <array>
#include <cstdarg>
#include <cstdio>

/// The part of the parser that drives libxml2's SAX interface.

namespace {

/// A damaged file can raise an error per character; the log needs only the first of them.
constexpr int kLoggedErrors = 20;

/// What libxml2 answers for a text without a document when it names no error.
constexpr int kNoDocument = -1;

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
        } catch (...) {
            parser.mGaveUp = true;
        }
    }

    static xmlEntityPtr getEntity(void* /*context*/, const xmlChar* name) { return xmlGetPredefinedEntity(name); }

    /// The input callback does not get the parser as its user data.
    struct Input {
        CVDocumentParserDelegate& parser;
        CVExaminedSource& source;
    };

    /// What libxml2 makes of the end of a stopped source is no news: the parser gives up before.
    static int readInput(void* context, char* buffer, int size) noexcept {
        auto& [parser, source] = *static_cast<Input*>(context);
        int count = 0;
        run(&parser, [&source = source, &count, buffer, size](auto& running) {
            count = static_cast<int>(source.read(buffer, size));
            running.mGaveUp = source.stop() != CVExaminedSource::Stop::None;
        });
        return count;
    }

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

    static void processingInstruction(void* context, const xmlChar* target, const xmlChar* /*data*/) {
        run(context, [=](auto& parser) { parser.notePartly(CVPartly::Instruction, text(target), nullptr); });
    }

    static void internalSubset(void* context, const xmlChar* name, const xmlChar* /*externalID*/,
                               const xmlChar* /*systemID*/) {
        run(context, [=](auto& parser) { parser.notePartly(CVPartly::DocumentType, text(name), nullptr); });
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
        // Not the entry for comments, with which libxml2 would refuse a comment of more than ten million bytes.
        handler.processingInstruction = processingInstruction;
        handler.internalSubset = internalSubset;
        handler.error = error;
        // Not XML_SAX2_MAGIC, with which libxml2 would silently ignore these SAX 1 element callbacks.
        handler.initialized = 1;
        return handler;
    }
};

bool CVDocumentParserDelegate::parseDocumentData() {
    if (!document || mWasBrokenOff)
        return false;
    if (!_co_decrypted_data && !_co_encrypted_data && !mSource) {
        document->reset_to_default_info();
        return true;
    }
    document->beginParsingData();
    QBuffer keptBytes;
    keptBytes.setData(_co_decrypted_data.value_or(QByteArray()));
    (void)keptBytes.open(QIODevice::ReadOnly);
    if (!mSource)
        mSource = std::make_unique<CVExaminedSource>(keptBytes, mProgress);
    const std::unique_ptr<CVExaminedSource> source = std::move(mSource);
    const int result = parse(*source);
    _co_decrypted_data.reset();
    mTexts = {};
    if (breakOff(*source)) {
        document->abandonParsingData();
        return false;
    }
    // Nothing was understood of a file that is refused for its form.
    if (source->stop() == CVExaminedSource::Stop::AbsurdElement)
        document->abandonParsingData();
    if (result != 0) {
        qCWarning(lcStorage, "Document parsing error %u", static_cast<unsigned>(result));
        mErrorMessage = malformedMessage();
        document->reset_to_default_info();
        return false;
    }
    document->finishedParsingData();
    return true;
}

int CVDocumentParserDelegate::parse(CVExaminedSource& source) {
    source.examineStart();
    if (source.examination().isEmpty())
        return kNoDocument;
    if (const auto size = source.size()) {
        CVDocumentParserCallbacks::run(this, [size](auto& parser) {
            parser.document->reserveTransactions(static_cast<std::size_t>(*size / kUsualTransaction));
        });
    }
    const CVQuietLibxml quiet;
    CVDocumentParserCallbacks::Input input{*this, source};
    xmlSAXHandler handler = CVDocumentParserCallbacks::handler();
    xmlParserCtxt* const context = xmlCreateIOParserCtxt(&handler, this, CVDocumentParserCallbacks::readInput, nullptr,
                                                         &input, XML_CHAR_ENCODING_NONE);
    if (!context) {
        mGaveUp = true;
        return XML_ERR_NO_MEMORY;
    }
    mContext = context;
    xmlParseDocument(context);
    mContext = nullptr;
    const int error = context->errNo != XML_ERR_OK ? context->errNo : kNoDocument;
    const int result = context->wellFormed ? 0 : error;
    xmlFreeDoc(context->myDoc);
    xmlFreeParserCtxt(context);
    CVDocumentParserCallbacks::run(this, [&source](auto& /*parser*/) { source.examineRest(); });
    mHoldsNul = source.examination().holdsNul();
    if (mHoldsNul)
        notePartly(CVPartly::ZeroByte, "", nullptr);
    for (qint64 comment = 0; comment < source.examination().comments(); ++comment)
        notePartly(CVPartly::Comment, "", source.examination().firstComments().value(comment).toUtf8().constData());
    mIsUtf32 = source.examination().isUtf32();
    if (source.stop() != CVExaminedSource::Stop::AbsurdElement)
        return result;
    mFirstError = tr("an element has more than %1 attributes").arg(CVFileExamination::kMostAttributes);
    mErrorLine = 0;
    return XML_ERR_INTERNAL_ERROR;
}

int CVDocumentParserDelegate::line() const {
    const auto* const context = static_cast<xmlParserCtxtPtr>(mContext);
    return context && context->input ? context->input->line : 0;
}

QString CVDocumentParserDelegate::malformedMessage() const {
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
    mPartly.add(CVPartly::Error, line, {}, message);
    if (mErrorCount <= kLoggedErrors)
        qCWarning(lcStorage, "%s", qUtf8Printable(text));
}
