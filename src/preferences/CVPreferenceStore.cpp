#include "preferences/CVPreferenceStore.h"

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "versions/CVVersionLimit.h"

CVPreferenceStore::CVPreferenceStore(QBUserDefaults& defaults, QBNotificationCenter& notificationCenter)
    : mDefaults(defaults)
    , mNotificationCenter(notificationCenter) {}

void CVPreferenceStore::setInteger(const char* key, int value, Change change) {
    mDefaults.setInteger(key, value);
    finish(change);
}

void CVPreferenceStore::setBool(const char* key, bool value, Change change) {
    mDefaults.setBool(key, value);
    finish(change);
}

void CVPreferenceStore::setVersionLimit(int megabytes) {
    CVSetVersionLimit(mDefaults, megabytes);
    finish(Change::Silent);
}

bool CVPreferenceStore::setDataFileLocation(const std::optional<QString>& path) {
    if (path)
        mDefaults.setString(CVDefaultsKeys::kDataFileLocation, *path);
    else
        mDefaults.removeKey(CVDefaultsKeys::kDataFileLocation);
    return finish(Change::Silent);
}

void CVPreferenceStore::announce() const {
    mNotificationCenter.postNotification(QLatin1String(CVNotifications::kPreference));
}

bool CVPreferenceStore::finish(Change change) {
    const bool isKept = mDefaults.synchronize();
    emit written(isKept);
    if (change == Change::Announced)
        announce();
    return isKept;
}
