#pragma once

#include "files/CVRuntimeFolder.h"
#include "lock/CVFileLock.h"

/// The lock that a running program has in its folder, so that only one works there. Where the folder allows no lock, a
/// spare one is in the runtime folder, named after a digest of the folder's path.
class CVRunningLock final {
public:
    /// `runtimeFolder` is the folder that the user has while logged in; empty for none.
    explicit CVRunningLock(const QString& folder, const QString& runtimeFolder = CVRuntimeFolder::ofUser());

    /// Does not wait. Impossible only when the spare lock is too.
    [[nodiscard]] CVFileLock::Outcome tryLock();

    /// The path of the spare socket of a folder; the spare lock adds ".lock". All names of one folder give the same
    /// path. Empty without a runtime folder.
    [[nodiscard]] static QString sparePath(const QString& folder, const QString& runtimeFolder);

private:
    CVFileLock mLock;
    /// Used when `mLock` is impossible.
    CVFileLock mSpareLock;
};
