#pragma once

#include <QString>
#include <QUrl>

/// The program that asks for a newer version, and the service that it asks.
struct CVUpdateService {
    /// The address of the service, without parameters.
    QString address;
    QString identifier;
    QString version;

    /// This program and its maker's service.
    [[nodiscard]] static CVUpdateService ofBundle();
};

enum class CVSystemInfo : bool { Omitted, Included };

/// The address of an update check, with the parameters that name the program and, when included, describe the system.
[[nodiscard]] QUrl CVMakeUpdateAddress(const CVUpdateService& service, CVSystemInfo systemInfo);

enum class QBURLParam : bool { Further, First };

/// Appends "?name=value" (first parameter) or "&name=value" to an address; the value is percent-encoded.
void url_appendValue(QString& address, const QString& value, const QString& name, QBURLParam param);
