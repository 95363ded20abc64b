#pragma once

#include <QString>

#include <functional>

/// Waits until `look` at `path` has returned, for a share that hangs answers no call. Shows a panel that names the path
/// once that takes half a second. False when the user cancels; `look` then goes on on its own thread, and nobody waits
/// for it any more.
[[nodiscard]] bool CVWaitForPlace(const QString& path, std::function<void()> look);
