#include "base/QBNotificationCenter.h"

#include <utility>

QBNotificationCenter::QBNotificationCenter() {
    qRegisterMetaType<QBNotification>();
}

void QBNotificationCenter::addObserver(const QString& name, QObject* observer,
                                       std::function<void(const QBNotification&)> handler) const {
    connect(this, &QBNotificationCenter::posted, observer,
            [name, handler = std::move(handler)](const QBNotification& notification) {
                if (notification.name == name)
                    handler(notification);
            });
}

void QBNotificationCenter::postNotification(const QString& name, std::any object) {
    emit posted({name, std::move(object)});
}
