#pragma once

#include "base/CVReplaceFile.h"

class CVDocumentText;

/// Replaces the file at `path` by the text of a document, as `CVReplaceFile` does; only its owner can read a new file.
[[nodiscard]] CVReplaceResult CVWriteDocumentText(const QString& path, const CVDocumentText& text);
