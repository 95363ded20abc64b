#pragma once

#include <QMap>
#include <QString>

/// The facts about the system that an update check may send. One table holds them all, so that the address and the
/// display cannot differ.

/// The operating system and its version, such as "Linux 6.1".
[[nodiscard]] QString QBSystemVersionForUpdate();

/// The system information as further parameters of an address, each with its ampersand and percent-encoded.
[[nodiscard]] QString QBGatherUpdateInfoForURL();

/// The same facts by key, for display.
[[nodiscard]] QMap<QString, QString> QBGatherUpdateInfoInDictionary();
