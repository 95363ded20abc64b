#pragma once

#include "files/CVFileResult.h"

class QIODevice;

/// Renames a file or folder in one step, so that the bytes always have a name. Never replaces anything.
[[nodiscard]] CVFileResult CVMoveFile(const QString& from, const QString& to);

/// Copies a file of any kind that can be read, with its access as `CVFileAccess` does. The copy gets the name `to` only
/// when it is whole and on the disk. Never replaces anything.
[[nodiscard]] CVFileResult CVCopyFile(const QString& from, const QString& to);

/// Copies what an open file holds from its position to its end.
[[nodiscard]] CVFileResult CVCopyBytes(int source, QIODevice& target);

/// Gives the same bytes a second name, or copies them where the file system has no hard links. Never replaces anything.
[[nodiscard]] CVFileResult CVLinkOrCopyFile(const QString& from, const QString& to);
