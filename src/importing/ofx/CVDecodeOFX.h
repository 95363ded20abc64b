#pragma once

#include "importing/statements/CVStatementText.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The text of a file and what stands before its elements.
struct CVOFXText {
    CVStatementText decoded = {};
    /// "1.0.2"; empty where the file does not say.
    QString version = {};
    /// Whether the file says that it is XML.
    bool isTree = false;
};

/// Makes text of the bytes: as UTF-8 or UTF-16 where they are, else in the encoding that the file names, which many
/// banks set without regard to what they write; else as `CVDecodeStatement` guesses.
[[nodiscard]] CVOFXText CVDecodeOFX(const QByteArray& bytes, const std::optional<QByteArray>& encoding);
