#pragma once

#include "model/CVDocumentText.h"

class CVDocument;

/// The whole document as the text of its data file (UTF-8). Transactions that have not changed since they were last
/// rendered cost no rendering and no copying.
[[nodiscard]] CVDocumentText CVDocumentXMLRepresentation(const CVDocument& document);
