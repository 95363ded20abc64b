#pragma once

#include "importing/CVImportNotes.h"

#include <QByteArray>

#include <optional>

/// The bytes of the notes' file.
[[nodiscard]] QByteArray CVJSONOfNotes(const CVImportNotes& notes);
/// Absent for bytes that no notes give. A mapping that a later version has written is left out.
[[nodiscard]] std::optional<CVImportNotes> CVNotesOfJSON(const QByteArray& bytes);
