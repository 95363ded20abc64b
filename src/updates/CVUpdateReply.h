#pragma once

#include <QByteArray>
#include <QUrl>
#include <QVariantMap>

#include <optional>

/// The service's facts about a version; a usable reply has at least "Version" and "Download".
using CVUpdateEntry = QVariantMap;

/// The entry of a reply for a program of that version: "Beta" for a beta build (a "b" in the version) when there is
/// one, else "Release". Absent when the bytes are no property list with such an entry.
[[nodiscard]] std::optional<CVUpdateEntry> CVChooseUpdateEntry(const QByteArray& reply, const QString& version);

/// The version that an entry names; absent unless it is a text or a number.
[[nodiscard]] std::optional<QString> CVVersionOfEntry(const CVUpdateEntry& entry);

/// The download page that an entry names; absent unless it is a web address (http or https).
[[nodiscard]] std::optional<QUrl> CVDownloadAddressOfEntry(const CVUpdateEntry& entry);
