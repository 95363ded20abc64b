#pragma once

#include "files/CVFileResult.h"

/// Makes a folder and those above it that are missing, which only the user can enter, whatever the user's file mode
/// mask allows. A folder that is there already stays as it is.
[[nodiscard]] CVFileResult CVMakePrivateFolder(const QString& path);

/// Makes an empty file in such a folder, or takes from a file that is there what others may do with it. What a link
/// leads to and what is no file stay as they are.
[[nodiscard]] CVFileResult CVMakePrivateFile(const QString& path);
