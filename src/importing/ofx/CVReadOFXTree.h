#pragma once

#include "importing/ofx/CVOFXContents.h"
#include "importing/statements/CVStopRequested.h"

#include <QString>

#include <optional>

/// Reads XML; absent where it is not well-formed, where an element has absurdly many attributes, and where it is
/// stopped. Nothing outside of the text is read, and no abbreviation that it defines is put in.
[[nodiscard]] std::optional<CVOFXContents> CVReadOFXTree(const QString& text, const CVStopRequested& stop);
