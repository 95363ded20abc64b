#pragma once

#include "importing/ofx/CVOFXContents.h"

#include <QString>

/// Who and what for.
struct CVOFXTexts {
    QString payee = {};
    QString purpose = {};
};

/// The texts of an entry, of which none is lost: a name that was cut is completed by the text that goes on with it.
[[nodiscard]] CVOFXTexts CVTextsOfOFXEntry(const CVOFXEntry& entry);
