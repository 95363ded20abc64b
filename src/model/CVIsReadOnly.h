#pragma once

#include "model/CVDocument.h"

/// Whether a record belongs to a budget that is only looked at.
template <typename Record>
[[nodiscard]] bool CVIsReadOnly(const Record& record) {
    const CVDocument* const document = record.document();
    return document && document->isReadOnly();
}
