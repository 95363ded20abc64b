#include "ListProperty.h"

#include "base/QBPropertyList.h"

#include <algorithm>

namespace {

bool isCutOff(const QString& text) {
    return text.contains(QChar::Null);
}

bool holdsCutOffText(const QVariant& value) {
    if (value.typeId() == QMetaType::QString)
        return isCutOff(value.toString());
    if (value.typeId() == QMetaType::QVariantList) {
        const QVariantList list = value.toList();
        return std::any_of(list.cbegin(), list.cend(), holdsCutOffText);
    }
    const QVariantMap map = value.toMap();
    return std::any_of(map.keyBegin(), map.keyEnd(), isCutOff) ||
           std::any_of(map.cbegin(), map.cend(), holdsCutOffText);
}

} // namespace

QString brokenListProperty(const QByteArray& bytes) {
    return holdsCutOffText(QBPropertyListFromData(bytes)) ? QStringLiteral("a text holds a NUL") : QString();
}
