#include "updates/CVUpdateStore.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "format/QBFixedDateFormat.h"

#include <utility>

namespace {

constexpr QStringView kTimeFormat = u"%m/%d/%y %H:%M %z";
const QString kCheckedVersion = QStringLiteral("AppCheckedVersion");

} // namespace

CVUpdateStore::CVUpdateStore(QBUserDefaults& defaults, QString version)
    : mDefaults(defaults)
    , mVersion(std::move(version)) {}

std::optional<CVUpdateEntry> CVUpdateStore::currentOffer() {
    if (!mDefaults.hasKey(CVDefaultsKeys::kUpdatedAppInfo))
        return std::nullopt;
    CVUpdateEntry offer = mDefaults.dictionaryForKey(CVDefaultsKeys::kUpdatedAppInfo);
    if (offer.value(kCheckedVersion).toString() == mVersion)
        return offer;
    removeOffer();
    return std::nullopt;
}

void CVUpdateStore::removeOffer() {
    mDefaults.removeKey(CVDefaultsKeys::kUpdatedAppInfo);
}

bool CVUpdateStore::keepReply(const QByteArray& reply, const QDateTime& time) {
    auto entry = CVChooseUpdateEntry(reply, mVersion);
    mDefaults.removeKey(CVDefaultsKeys::kUpdatedAppError);
    if (!entry) {
        mDefaults.setBool(CVDefaultsKeys::kUpdatedAppError, true);
        return false;
    }
    mDefaults.setString(CVDefaultsKeys::kLastCheckForUpdatesTime, stringWithFixedFormat(kTimeFormat, time));
    if (const auto version = CVVersionOfEntry(*entry); version && *version != mVersion) {
        entry->insert(kCheckedVersion, mVersion);
        mDefaults.setDictionary(CVDefaultsKeys::kUpdatedAppInfo, *entry);
    }
    return true;
}

bool CVUpdateStore::lastCheckFailed() const {
    return mDefaults.hasKey(CVDefaultsKeys::kUpdatedAppError);
}

QDateTime CVTimeOfLastUpdateCheck(const QBUserDefaults& defaults) {
    const auto text = defaults.stringForKey(CVDefaultsKeys::kLastCheckForUpdatesTime);
    return text ? nsdateWithFixedFormat(kTimeFormat, *text) : QDateTime();
}
