#pragma once

#include "widgets/CVAlerts.h"

class QUrl;

/// What the user is told of newer versions, and of addresses that no program opens. `name` is the application's.
namespace CVUpdateMessages {

/// Default upgrades, alternate changes the preferences, other asks again later.
[[nodiscard]] CVAlert offer(const QString& name);
[[nodiscard]] CVAlert unreachable();
/// Alternate changes the preferences.
[[nodiscard]] CVAlert upToDate(const QString& name);
/// The address is shown, so that the user can go there otherwise.
[[nodiscard]] CVAlert notOpened(const QString& address);
[[nodiscard]] CVAlert notOpened(const QUrl& address);
/// The offer names no page that could be opened.
[[nodiscard]] CVAlert noDownload();

} // namespace CVUpdateMessages
