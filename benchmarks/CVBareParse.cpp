#include "CVBareParse.h"

#include <libxml/parser.h>

namespace {

xmlEntityPtr predefinedEntity(void* /*context*/, const xmlChar* name) {
    return xmlGetPredefinedEntity(name);
}
void ignoreStart(void* /*context*/, const xmlChar* /*name*/, const xmlChar** /*attributes*/) {}
void ignoreEnd(void* /*context*/, const xmlChar* /*name*/) {}
void ignoreCharacters(void* /*context*/, const xmlChar* /*bytes*/, int /*length*/) {}
void ignoreError(void* /*context*/, const char* /*format*/, ...) {}

} // namespace

bool CVParseBare(const QByteArray& bytes) {
    xmlSAXHandler handler{};
    handler.getEntity = predefinedEntity;
    handler.startElement = ignoreStart;
    handler.endElement = ignoreEnd;
    handler.characters = ignoreCharacters;
    handler.error = ignoreError;
    handler.initialized = 1;
    return xmlSAXUserParseMemory(&handler, &handler, bytes.constData(), static_cast<int>(bytes.size())) == 0;
}
