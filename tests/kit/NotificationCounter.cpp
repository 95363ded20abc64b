#include "kit/NotificationCounter.h"

#include "base/QBNotificationCenter.h"

#include <algorithm>

NotificationCounter::NotificationCounter(QBNotificationCenter& center) {
    QObject::connect(&center, &QBNotificationCenter::posted, &mObserver,
                     [this](const QBNotification& notification) { mNames.push_back(notification.name); });
}

int NotificationCounter::count(const char* name) const {
    return static_cast<int>(std::count(mNames.begin(), mNames.end(), QLatin1String(name)));
}
