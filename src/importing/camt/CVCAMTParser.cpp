#include "importing/camt/CVCAMTParser.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <limits>

namespace {

constexpr int kBetweenQuestions = 1024;
constexpr int kAllRead = 1000;

/// A name without its prefix.
QByteArrayView localName(const xmlChar* name) {
    const QByteArrayView whole(reinterpret_cast<const char*>(name));
    return whole.sliced(whole.lastIndexOf(':') + 1);
}

/// What is read, as libxml2's callbacks need it.
class Reading {
public:
    Reading(const CVStopRequested& stop, qsizetype size) : mStop(stop), mSize(size) {}

    void run(const QByteArray& utf8) {
        xmlParserCtxtPtr context = xmlCreateMemoryParserCtxt(utf8.constData(), static_cast<int>(utf8.size()));
        if (!context) {
            parsed.end = CVCAMTParsed::End::Damaged;
            return;
        }
        mContext = context;
        *context->sax = handler();
        context->userData = this;
        xmlCtxtUseOptions(context, XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
        xmlParseDocument(context);
        if (parsed.end == CVCAMTParsed::End::Whole && !context->wellFormed) {
            parsed.end = CVCAMTParsed::End::Damaged;
            parsed.line = context->lastError.line;
        }
        mContext = nullptr;
        xmlFreeDoc(context->myDoc);
        xmlFreeParserCtxt(context);
        parsed.file = std::move(mBuilder.file);
    }

    CVCAMTParsed parsed;

private:
    /// No exception leaves a callback: one for lack of memory ends the reading.
    template <typename Action>
    static void call(void* context, Action action) noexcept {
        auto& reading = *static_cast<Reading*>(context);
        if (reading.parsed.end != CVCAMTParsed::End::Whole)
            return;
        try {
            action(reading);
        } catch (...) {
            reading.giveUp(CVCAMTParsed::End::TooLong);
        }
    }

    static void startElement(void* context, const xmlChar* name, const xmlChar** attributes) {
        call(context, [=](Reading& reading) { reading.begin(name, attributes); });
    }

    static void endElement(void* context, const xmlChar* /*name*/) {
        call(context, [](Reading& reading) { reading.end(); });
    }

    static void characters(void* context, const xmlChar* text, int length) {
        call(context, [=](Reading& reading) {
            reading.mBuilder.addText(QByteArrayView(reinterpret_cast<const char*>(text), length));
        });
    }

    static void internalSubset(void* context, const xmlChar* /*name*/, const xmlChar* /*externalID*/,
                               const xmlChar* /*systemID*/) {
        call(context, [](Reading& reading) { reading.giveUp(CVCAMTParsed::End::HasDeclarations); });
    }

    static xmlEntityPtr getEntity(void* /*context*/, const xmlChar* name) { return xmlGetPredefinedEntity(name); }

    /// Keeps the messages of libxml2 off standard error.
    static void drop(void* /*context*/, const char* /*format*/, ...) {}

    static xmlSAXHandler handler() {
        xmlSAXHandler handler{};
        handler.getEntity = getEntity;
        handler.startElement = startElement;
        handler.endElement = endElement;
        handler.characters = characters;
        handler.internalSubset = internalSubset;
        handler.error = drop;
        handler.warning = drop;
        // Not XML_SAX2_MAGIC, with which libxml2 would silently ignore these SAX 1 element callbacks.
        handler.initialized = 1;
        return handler;
    }

    void begin(const xmlChar* name, const xmlChar** attributes) {
        if (++mElements % kBetweenQuestions == 0 && mStop && mStop(permille())) {
            giveUp(CVCAMTParsed::End::Stopped);
            return;
        }
        QString currency;
        const QByteArrayView local = localName(name);
        for (const xmlChar** at = attributes; at && at[0] && at[1]; at += 2) {
            if (local == "Document")
                mBuilder.takeSchema(QString::fromUtf8(reinterpret_cast<const char*>(at[1])));
            else if (local == "Amt" && localName(at[0]) == "Ccy")
                currency = QString::fromUtf8(reinterpret_cast<const char*>(at[1])).trimmed();
        }
        mBuilder.begin(local, currency, mContext->input ? mContext->input->line : 1);
        endWhereTooLong();
    }

    void end() {
        mBuilder.end();
        endWhereTooLong();
    }

    void endWhereTooLong() {
        if (mBuilder.file.isTooLong)
            giveUp(CVCAMTParsed::End::TooLong);
    }

    void giveUp(CVCAMTParsed::End end) {
        parsed.end = end;
        xmlStopParser(mContext);
    }

    [[nodiscard]] int permille() const {
        const auto* const input = mContext->input;
        const qint64 done = input ? (input->cur - input->base) + static_cast<qint64>(input->consumed) : 0;
        return static_cast<int>(std::clamp<qint64>(done * kAllRead / std::max(mSize, qsizetype{1}), 0, kAllRead));
    }

    const CVStopRequested& mStop;
    qsizetype mSize;
    xmlParserCtxtPtr mContext = nullptr;
    CVCAMTBuilder mBuilder;
    int mElements = 0;
};

} // namespace

CVCAMTParsed CVParseCAMT(const QByteArray& utf8, const CVStopRequested& stop) {
    // libxml2 counts bytes in an int.
    if (utf8.size() > std::numeric_limits<int>::max())
        return {CVCAMTParsed::End::TooLong, 0, {}};
    Reading reading(stop, utf8.size());
    reading.run(utf8);
    return std::move(reading.parsed);
}
