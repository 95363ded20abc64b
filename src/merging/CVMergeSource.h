#pragma once

#include "model/CVDocumentText.h"

#include <QString>

#include <optional>

/// Why a window shows another file: it has changes of the same budget, or the user imports what it has besides.
enum class CVMergePurpose : bool { Changes, Import };

/// Another file of which something may be brought into the budget.
struct CVMergeSource {
    QString path;
    /// The text of the last state that the budget and that file had in common; absent when it is unknown.
    std::optional<CVDocumentText> common;
};
