#pragma once

#include "widgets/CVAlerts.h"

/// The messages about newer versions. `name` is the application's name.
namespace CVUpdateMessages {

/// Default upgrades, alternate changes the preferences, other asks again later.
[[nodiscard]] CVAlert offer(const QString& name);
[[nodiscard]] CVAlert unreachable();
/// Alternate changes the preferences.
[[nodiscard]] CVAlert upToDate(const QString& name);
/// Says that the offer names no page that could be opened.
[[nodiscard]] CVAlert noDownload();

} // namespace CVUpdateMessages
