#include "files/CVSwapFile.h"

#include "files/CVMoveFile.h"
#include "files/CVTemporaryFile.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr int kMostSwaps = 100;

bool rename(const QString& from, const QString& to, unsigned flags) {
    return ::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD, QFile::encodeName(to).constData(),
                       flags) == 0;
}

void remove(const QString& path) {
    ::unlink(QFile::encodeName(path).constData());
}

/// Whether the directory entry is the expected file; what cannot be examined is not.
bool isExpectedFile(const QString& path, const std::optional<CVFileSignature>& expected) {
    const auto entry = CVFileSignature::ofEntry(path);
    return entry && entry == expected;
}

CVSwapResult exchanged(const QString& fresh, const std::optional<CVFileSignature>& expected, CVFormerFile former) {
    CVSwapResult result{{}, true, fresh, isExpectedFile(fresh, expected)};
    if (result.isExpected && former == CVFormerFile::Dropped) {
        remove(fresh);
        result.former.clear();
    }
    return result;
}

/// For file systems that cannot exchange two names. Absent when the file changed meanwhile.
std::optional<CVSwapResult> replace(const QString& fresh, const QString& target,
                                    const std::optional<CVFileSignature>& expected, CVFormerFile former) {
    const CVPathStatus present = CVPathStatus::of(target);
    if (!present.error.isEmpty())
        return CVSwapResult{{present.error}};
    CVSwapResult result;
    result.isExpected = !present.signature || present.signature == expected;
    if (present.signature && (former == CVFormerFile::Kept || !result.isExpected)) {
        result.former = CVTemporaryFile::nameBeside(target);
        if (const CVFileResult keeping = CVLinkOrCopyFile(target, result.former); !keeping.ok())
            return CVSwapResult{keeping};
    }
    const bool isChanged = CVFileSignature::of(target) != present.signature;
    if (!isChanged && ::rename(QFile::encodeName(fresh).constData(), QFile::encodeName(target).constData()) == 0) {
        result.isPlaced = true;
        return result;
    }
    const CVFileResult failure = CVFileResult::ofLastCall();
    if (!result.former.isEmpty())
        remove(result.former);
    return isChanged ? std::nullopt : std::optional(CVSwapResult{failure});
}

} // namespace

CVSwapResult CVSwapFile(const QString& fresh, const QString& target, const std::optional<CVFileSignature>& expected,
                        CVFormerFile former) {
    for (int attempt = 0; attempt < kMostSwaps; ++attempt) {
        if (rename(fresh, target, RENAME_EXCHANGE))
            return exchanged(fresh, expected, former);
        if (errno == ENOENT && rename(fresh, target, RENAME_NOREPLACE))
            return {{}, true, {}, true};
        if (CVFileResult::isUnknownCall(errno)) {
            if (auto result = replace(fresh, target, expected, former))
                return *result;
        } else if (errno != EEXIST && errno != EINTR) {
            return {CVFileResult::ofLastCall()};
        }
    }
    return {{qt_error_string(EBUSY)}};
}
