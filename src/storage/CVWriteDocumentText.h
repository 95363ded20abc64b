#pragma once

#include "files/CVReplaceFile.h"

class CVDocumentText;

/// Writes the text of a document, which outlives the function.
[[nodiscard]] CVFileContent CVContentOfDocumentText(const CVDocumentText& text);

/// Replaces the file at `path` by the text of a document, as `CVReplaceExpectedFile` does.
[[nodiscard]] CVReplaceResult CVWriteDocumentText(const QString& path, const CVDocumentText& text,
                                                  const std::optional<CVFileSignature>& expected, CVFormerFile former);
