#pragma once

#include "files/CVFileResult.h"
#include "files/CVFileSignature.h"

/// What becomes of the file that another one replaces.
enum class CVFormerFile : bool {
    /// It keeps a name only when it is not the one that was expected.
    Dropped,
    /// It keeps a name in every case.
    Kept
};

struct CVSwapResult : CVFileResult {
    /// Whether the new file is in its place.
    bool isPlaced = false;
    /// Where what stood there is now; empty when nothing stood there or nothing of it is left.
    QString former = {};
    /// Whether what stood there is the expected file. Looked at only after it was taken out.
    bool isExpected = true;
};

/// Puts the file `fresh` in the place `target`: at every moment either the old file or the new one is there whole.
/// Where the file system can exchange two names, whatever stood there, also a folder, bears the name `fresh`
/// afterwards; no change by another program is lost, not even one of the same moment. Elsewhere it gets a second name
/// beside `target`, is compared with `expected` (absent: nothing), and is replaced; a change between comparing and
/// replacing is lost. Syncs nothing. On failure the old file is in place and `fresh` keeps its name.
[[nodiscard]] CVSwapResult CVSwapFile(const QString& fresh, const QString& target,
                                      const std::optional<CVFileSignature>& expected, CVFormerFile former);
