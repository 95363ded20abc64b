#pragma once

#include "model/CVDocumentText.h"

#include <QString>

#include <optional>

/// Another file with changes that may be brought into the budget.
struct CVMergeSource {
    QString path;
    /// The text of the last state that the budget and that file had in common; absent when it is unknown.
    std::optional<CVDocumentText> common;
};
