#include "CVBareParse.h"

#include <QFile>

#include <fcntl.h>
#include <libxml/parser.h>
#include <unistd.h>

namespace {

xmlEntityPtr predefinedEntity(void* /*context*/, const xmlChar* name) {
    return xmlGetPredefinedEntity(name);
}
void ignoreStart(void* /*context*/, const xmlChar* /*name*/, const xmlChar** /*attributes*/) {}
void ignoreEnd(void* /*context*/, const xmlChar* /*name*/) {}
void ignoreCharacters(void* /*context*/, const xmlChar* /*bytes*/, int /*length*/) {}
void ignoreError(void* /*context*/, const char* /*format*/, ...) {}

xmlSAXHandler emptyHandler() {
    xmlSAXHandler handler{};
    handler.getEntity = predefinedEntity;
    handler.startElement = ignoreStart;
    handler.endElement = ignoreEnd;
    handler.characters = ignoreCharacters;
    handler.error = ignoreError;
    handler.initialized = 1;
    return handler;
}

int readFile(void* context, char* buffer, int size) {
    return static_cast<int>(::read(*static_cast<int*>(context), buffer, static_cast<std::size_t>(size)));
}

} // namespace

bool CVParseBare(const QByteArray& bytes) {
    xmlSAXHandler handler = emptyHandler();
    return xmlSAXUserParseMemory(&handler, &handler, bytes.constData(), static_cast<int>(bytes.size())) == 0;
}

bool CVParseBareFile(const QString& path) {
    int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    xmlSAXHandler handler = emptyHandler();
    xmlParserCtxt* const context =
        xmlCreateIOParserCtxt(&handler, &handler, readFile, nullptr, &file, XML_CHAR_ENCODING_NONE);
    xmlParseDocument(context);
    const bool isWhole = context->wellFormed != 0;
    xmlFreeParserCtxt(context);
    ::close(file);
    return isWhole;
}
