#pragma once

#include "importing/ofx/CVOFXContents.h"
#include "importing/statements/CVStopRequested.h"

#include <QString>

/// Reads elements whose ends may be missing: a text lasts until the next tag. What is no tag is text: "A < B", "A & B".
/// Where it is stopped, what was read so far.
[[nodiscard]] CVOFXContents CVReadOFXMarkup(const QString& text, const CVStopRequested& stop);
