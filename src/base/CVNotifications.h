#pragma once

/// Names of the notifications. "Notificaiton" is misspelt in two of them; the misspelling is part of the names.
namespace CVNotifications {

inline constexpr const char* kTransactionAddedRemoved = "CVTransactionAddedRemovedNotificaiton";
inline constexpr const char* kCategoryAddedRemoved = "CVCategoryAddedRemovedNotificaiton";
/// Its object is the set that was added or renamed; it has no object when a set was deleted or several may have
/// changed.
inline constexpr const char* kTransactionSet = "kCVTransactionSetNotification";
/// The format of money has changed.
inline constexpr const char* kMoneyFormatterChanged = "kQBNotif_MoneyFormatterChanged";
inline constexpr const char* kPreference = "CVPreferenceNotification";
/// A check for a newer version got a usable reply; its object is the checker, a `QObject*`.
inline constexpr const char* kCheckedForUpdates = "QBNotification_CheckedForUpdates";

} // namespace CVNotifications
