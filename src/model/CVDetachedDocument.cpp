#include "model/CVDetachedDocument.h"

#include <QSettings>

namespace {

std::unique_ptr<QSettings> emptyStore() {
    return std::make_unique<QSettings>(QStringLiteral(":/no settings"), QSettings::IniFormat);
}

} // namespace

CVDetachedDocument::CVDetachedDocument()
    : mUserDefaults(emptyStore(), QBUserDefaults::Changes::Forgotten)
    , mDocument(mNotificationCenter, mUserDefaults) {}
