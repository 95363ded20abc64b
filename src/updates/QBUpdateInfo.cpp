#include "updates/QBUpdateInfo.h"

#include "updates/CVUpdateAddress.h"

#include <QLocale>
#include <QSysInfo>
#include <QThread>

#include <array>

namespace {

struct Item {
    const char* key;
    QString (*value)();
};

/// No item tells one machine from another of the same kind.
constexpr std::array<Item, 5> kItems{{{"dist", [] { return QSysInfo::prettyProductName(); }},
                                      {"cpu", [] { return QSysInfo::currentCpuArchitecture(); }},
                                      {"ncpu", [] { return QString::number(QThread::idealThreadCount()); }},
                                      {"lang", [] { return QLocale::system().name(); }},
                                      {"qt", [] { return QString::fromLatin1(qVersion()); }}}};

} // namespace

QString QBSystemVersionForUpdate() {
    // The first two numbers name the version of a kernel; what follows them is the build of a distribution.
    const QString kernel = QSysInfo::kernelVersion().section('.', 0, 1);
    return QSysInfo::kernelType().replace(QLatin1String("linux"), QLatin1String("Linux")) + ' ' + kernel;
}

QString QBGatherUpdateInfoForURL() {
    QString parameters;
    for (const Item& item : kItems)
        url_appendValue(parameters, item.value(), QLatin1String(item.key), QBURLParam::Further);
    return parameters;
}

QMap<QString, QString> QBGatherUpdateInfoInDictionary() {
    QMap<QString, QString> values;
    for (const Item& item : kItems)
        values.insert(QLatin1String(item.key), item.value());
    return values;
}
