#pragma once

#include "model/CVDocumentText.h"

class CVDocument;

/// The whole document as the text of its data file (UTF-8). Transactions that have not changed since their last
/// rendering are neither rendered nor copied.
[[nodiscard]] CVDocumentText CVDocumentXMLRepresentation(const CVDocument& document);

/// The bytes with which the text of every document begins.
[[nodiscard]] QByteArray CVBeginOfDocumentText();
