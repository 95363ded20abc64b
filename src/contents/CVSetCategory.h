#pragma once

#include "model/CVCollections.h"

#include <QString>

#include <cstddef>
#include <span>

class CVDocument;

/// Gives those of the transactions that the document has the category of exactly that name as one change, announced
/// once; makes the category where there is none. Does not save. Returns how many transactions had another category;
/// without any nothing is announced or made.
[[nodiscard]] std::size_t
CVSetCategory(CVDocument& document, std::span<const std::shared_ptr<CVTransaction>> transactions, const QString& name);
