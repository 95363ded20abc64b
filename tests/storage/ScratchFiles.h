#pragma once

#include "model/CVDocumentText.h"

#include <QByteArray>
#include <QStringList>

/// Short helpers for tests that look at files.

/// Writes a file and makes missing folders; stops the test program on failure.
void writeFile(const QString& path, const QByteArray& bytes);
/// The bytes of a file; null when there is none or it cannot be read.
[[nodiscard]] QByteArray readFile(const QString& path);
/// The names in a folder, hidden ones and broken links included, sorted.
[[nodiscard]] QStringList namesIn(const QString& folder);
/// The permission bits as chmod takes them; -1 when there is nothing at `path`.
[[nodiscard]] int modeOf(const QString& path);
void setMode(const QString& path, unsigned mode);
/// Makes a symbolic link; stops the test program on failure. `target` may be relative to the folder of `path`.
void makeLink(const QString& target, const QString& path);
/// A text of one piece.
[[nodiscard]] CVDocumentText textOf(const QByteArray& bytes);
