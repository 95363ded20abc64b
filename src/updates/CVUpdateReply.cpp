#include "updates/CVUpdateReply.h"

#include "base/QBPropertyList.h"

std::optional<CVUpdateEntry> CVChooseUpdateEntry(const QByteArray& reply, const QString& version) {
    const QVariantMap entries = QBPropertyListFromData(reply).toMap();
    const QVariant beta = entries.value(QStringLiteral("Beta"));
    const QVariant chosen = version.contains('b') && beta.typeId() == QMetaType::QVariantMap
                                ? beta
                                : entries.value(QStringLiteral("Release"));
    return chosen.typeId() == QMetaType::QVariantMap ? std::optional(chosen.toMap()) : std::nullopt;
}

std::optional<QString> CVVersionOfEntry(const CVUpdateEntry& entry) {
    const QVariant version = entry.value(QStringLiteral("Version"));
    switch (version.typeId()) {
    case QMetaType::QString:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return version.toString();
    default:
        return std::nullopt;
    }
}

std::optional<QUrl> CVDownloadAddressOfEntry(const CVUpdateEntry& entry) {
    const QUrl address(entry.value(QStringLiteral("Download")).toString(), QUrl::StrictMode);
    const bool isWeb = address.scheme() == QLatin1String("https") || address.scheme() == QLatin1String("http");
    return isWeb && !address.host().isEmpty() ? std::optional(address) : std::nullopt;
}
