#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <optional>

/// The runtime folder of the session while the toolkit starts. The toolkit looks there for a display, and where the
/// session has no such folder of this user's, it makes one with a complaint on standard error: then it gets one of its
/// own, which goes with this object.
class CVRuntimeFolder final {
public:
    /// The runtime folder of this user's session; empty when there is none. One that others may enter counts, with the
    /// toolkit's complaint: the session's display may lie in it.
    [[nodiscard]] static QString ofUser();

    CVRuntimeFolder();
    /// The environment is again as it was.
    ~CVRuntimeFolder();
    CVRuntimeFolder(const CVRuntimeFolder&) = delete;
    CVRuntimeFolder& operator=(const CVRuntimeFolder&) = delete;

private:
    std::optional<QByteArray> mBefore;
    std::optional<QTemporaryDir> mOwn;
};
