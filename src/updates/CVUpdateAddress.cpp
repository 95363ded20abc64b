#include "updates/CVUpdateAddress.h"

#include "base/CVBundle.h"
#include "base/CVSite.h"
#include "updates/QBUpdateInfo.h"

CVUpdateService CVUpdateService::ofBundle() {
    return {CVSite::updateCheck(), QString::fromLatin1(CVBundle::kIdentifier), CVBundle::versionText()};
}

QUrl CVMakeUpdateAddress(const CVUpdateService& service, CVSystemInfo systemInfo) {
    QString address = service.address;
    url_appendValue(address, service.identifier, QStringLiteral("app"), QBURLParam::First);
    url_appendValue(address, service.version, QStringLiteral("vers"), QBURLParam::Further);
    url_appendValue(address, QBSystemVersionForUpdate(), QStringLiteral("sys"), QBURLParam::Further);
    if (systemInfo == CVSystemInfo::Included)
        address += QBGatherUpdateInfoForURL();
    return QUrl(address, QUrl::StrictMode);
}

void url_appendValue(QString& address, const QString& value, const QString& name, QBURLParam param) {
    address += param == QBURLParam::First ? '?' : '&';
    address += name + '=' + QString::fromLatin1(QUrl::toPercentEncoding(value));
}
