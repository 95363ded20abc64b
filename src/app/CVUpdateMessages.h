#pragma once

#include "widgets/CVAlerts.h"

/// What the user is told of newer versions. `name` is the application's.
namespace CVUpdateMessages {

/// Default upgrades, alternate changes the preferences, other asks again later.
[[nodiscard]] CVAlert offer(const QString& name);
[[nodiscard]] CVAlert unreachable();
/// Alternate changes the preferences.
[[nodiscard]] CVAlert upToDate(const QString& name);
/// The offer names no page that could be opened.
[[nodiscard]] CVAlert noDownload();

} // namespace CVUpdateMessages
