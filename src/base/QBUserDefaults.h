#pragma once

#include <QHash>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

class QSettings;

/// The user's settings: a flat store of named values that outlives the process and that only the user can read. An
/// absent or unreadable value reads as
/// 0, false or nothing. The setters report no failure: settings that cannot be stored last until the process ends.
class QBUserDefaults final {
public:
    enum class Changes {
        Kept,
        /// Changes last as long as this object; the store is only read.
        Forgotten
    };

    explicit QBUserDefaults(std::unique_ptr<QSettings> store, Changes changes = Changes::Kept);
    ~QBUserDefaults();
    QBUserDefaults(const QBUserDefaults&) = delete;
    QBUserDefaults& operator=(const QBUserDefaults&) = delete;

    /// The store of the user who runs the program.
    [[nodiscard]] static std::unique_ptr<QSettings> standardStore();

    [[nodiscard]] int integerForKey(const char* key) const;
    [[nodiscard]] bool boolForKey(const char* key) const;
    /// Absent when the key is absent or its value is empty.
    [[nodiscard]] std::optional<QString> stringForKey(const char* key) const;
    [[nodiscard]] QByteArray dataForKey(const char* key) const;
    /// Empty when the key is absent or its value is no dictionary.
    [[nodiscard]] QVariantMap dictionaryForKey(const char* key) const;
    [[nodiscard]] bool hasKey(const char* key) const;

    void setInteger(const char* key, int value);
    void setBool(const char* key, bool value);
    void setString(const char* key, const QString& value);
    void setData(const char* key, const QByteArray& value);
    void setDictionary(const char* key, const QVariantMap& value);
    void removeKey(const char* key);

    /// Writes the changes to the disk at once; false when that fails, and the changes then last until the process ends.
    bool synchronize();
    /// The path of the settings file, to be shown to a person.
    [[nodiscard]] QString fileName() const;

private:
    [[nodiscard]] QVariant value(const char* key) const;
    void setValue(const char* key, const QVariant& value);

    std::unique_ptr<QSettings> mStore;
    Changes mChanges;
    /// The changes that are not stored; an invalid value stands for a removed key.
    QHash<QString, QVariant> mForgotten;
};
