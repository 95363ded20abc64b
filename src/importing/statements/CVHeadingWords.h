#pragma once

#include "importing/statements/CVStatementMapping.h"

#include <QString>

/// What a heading says about its column.
struct CVHeading {
    CVColumnRole role = CVColumnRole::Guessed;
    /// Of several columns with one role the lowest rank is the likeliest.
    int rank = 0;
};

/// The role that a heading names in one of many languages; Guessed when its words are not known, Ignored when they name
/// something that is no use.
[[nodiscard]] CVHeading CVHeadingOf(const QString& text);
