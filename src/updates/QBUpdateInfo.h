#pragma once

#include <QMap>
#include <QString>

/// What the update check can say of the machine. The list of what is sent stands in one table, so that the address and
/// the display cannot differ.

/// The operating system and its version, such as "Linux 6.1".
[[nodiscard]] QString QBSystemVersionForUpdate();

/// The system information as further parameters of an address, each with its ampersand and percent-encoded.
[[nodiscard]] QString QBGatherUpdateInfoForURL();

/// The same, by key, for display.
[[nodiscard]] QMap<QString, QString> QBGatherUpdateInfoInDictionary();
