#pragma once

/// Names of the notifications. "Notificaiton" is misspelt in two of them; the misspelling is part of the names.
namespace CVNotifications {

inline constexpr const char* kTransactionAddedRemoved = "CVTransactionAddedRemovedNotificaiton";
inline constexpr const char* kCategoryAddedRemoved = "CVCategoryAddedRemovedNotificaiton";
/// Carries the set as its object when one was added or renamed, nothing when one was deleted.
inline constexpr const char* kTransactionSet = "kCVTransactionSetNotification";
/// Money is written in another way now.
inline constexpr const char* kMoneyFormatterChanged = "kQBNotif_MoneyFormatterChanged";
inline constexpr const char* kPreference = "CVPreferenceNotification";
/// A check for a newer version got a usable reply; its object is the one that checked, a `QObject*`.
inline constexpr const char* kCheckedForUpdates = "QBNotification_CheckedForUpdates";

} // namespace CVNotifications
