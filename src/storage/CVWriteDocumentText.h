#pragma once

#include "base/CVSafeFile.h"

class CVDocumentText;

/// Replaces the file at `path` by the text of a document, as `CVReplaceFile` does; a new one can be read by its owner
/// alone.
[[nodiscard]] CVReplaceResult CVWriteDocumentText(const QString& path, const CVDocumentText& text);
