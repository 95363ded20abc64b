#include "base/QBUserDefaults.h"

#include "base/CVBundle.h"
#include "files/CVMakePrivate.h"

#include <QSettings>

#include <utility>

QBUserDefaults::QBUserDefaults(std::unique_ptr<QSettings> store, Changes changes)
    : mStore(std::move(store))
    , mChanges(changes) {
    mStore->setFallbacksEnabled(false);
}

QBUserDefaults::~QBUserDefaults() = default;

std::unique_ptr<QSettings> QBUserDefaults::standardStore() {
    return std::make_unique<QSettings>(QString::fromLatin1(CVBundle::kOrganization),
                                       QString::fromLatin1(CVBundle::kName));
}

int QBUserDefaults::integerForKey(const char* key) const {
    return value(key).toInt();
}

bool QBUserDefaults::boolForKey(const char* key) const {
    return value(key).toBool();
}

std::optional<QString> QBUserDefaults::stringForKey(const char* key) const {
    const QString text = value(key).toString();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

QByteArray QBUserDefaults::dataForKey(const char* key) const {
    return value(key).toByteArray();
}

QVariantMap QBUserDefaults::dictionaryForKey(const char* key) const {
    return value(key).toMap();
}

bool QBUserDefaults::hasKey(const char* key) const {
    return value(key).isValid();
}

void QBUserDefaults::setInteger(const char* key, int value) {
    setValue(key, value);
}

void QBUserDefaults::setBool(const char* key, bool value) {
    setValue(key, value);
}

void QBUserDefaults::setString(const char* key, const QString& value) {
    setValue(key, value);
}

void QBUserDefaults::setData(const char* key, const QByteArray& value) {
    setValue(key, value);
}

void QBUserDefaults::setDictionary(const char* key, const QVariantMap& value) {
    setValue(key, value);
}

void QBUserDefaults::removeKey(const char* key) {
    setValue(key, {});
}

bool QBUserDefaults::synchronize() {
    // `mStore` reports its first failure for ever. A second QSettings of the same file shares the pending changes and
    // reports only how this attempt ends.
    QSettings writer(mStore->fileName(), mStore->format());
    writer.sync();
    return writer.status() != QSettings::AccessError;
}

QString QBUserDefaults::fileName() const {
    return mStore->fileName();
}

QVariant QBUserDefaults::value(const char* key) const {
    const QLatin1String name(key);
    const auto forgotten = mForgotten.constFind(name);
    return forgotten == mForgotten.constEnd() ? mStore->value(name) : *forgotten;
}

void QBUserDefaults::setValue(const char* key, const QVariant& value) {
    const QLatin1String name(key);
    if (mChanges == Changes::Forgotten) {
        mForgotten.insert(name, value);
        return;
    }
    // QSettings makes a file that everybody can read, but keeps the mode of one that is there. What cannot be made here
    // cannot be stored either, which `synchronize` tells.
    (void)CVMakePrivateFile(mStore->fileName());
    if (value.isValid())
        mStore->setValue(name, value);
    else
        mStore->remove(name);
}
