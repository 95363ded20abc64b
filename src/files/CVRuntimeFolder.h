#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <optional>

/// Provides a runtime folder (XDG_RUNTIME_DIR) while the toolkit starts, because the toolkit looks for a display there.
/// Without a folder that belongs to the user, the toolkit makes one and complains on standard error; this object
/// therefore sets a temporary folder, which it removes in the end.
class CVRuntimeFolder final {
public:
    /// The runtime folder of this user's session; empty when there is none. A folder that other users may enter counts
    /// too, although the toolkit complains about it, because the session's display may be in it.
    [[nodiscard]] static QString ofUser();

    CVRuntimeFolder();
    /// Restores the environment.
    ~CVRuntimeFolder();
    CVRuntimeFolder(const CVRuntimeFolder&) = delete;
    CVRuntimeFolder& operator=(const CVRuntimeFolder&) = delete;

private:
    std::optional<QByteArray> mBefore;
    std::optional<QTemporaryDir> mOwn;
};
