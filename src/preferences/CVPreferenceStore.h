#pragma once

#include <QObject>
#include <QString>

#include <optional>

class QBNotificationCenter;
class QBUserDefaults;

/// Writes the settings of the preferences to the disk at once. References the user defaults and the notification
/// centre, which outlive it.
class CVPreferenceStore final : public QObject {
    Q_OBJECT

public:
    enum class Change : bool {
        Silent,
        /// A notification tells the main window to read its settings again.
        Announced
    };

    CVPreferenceStore(QBUserDefaults& defaults, QBNotificationCenter& notificationCenter);

    [[nodiscard]] QBUserDefaults& defaults() const { return mDefaults; }
    [[nodiscard]] QBNotificationCenter& notificationCenter() const { return mNotificationCenter; }

    void setInteger(const char* key, int value, Change change);
    void setBool(const char* key, bool value, Change change);
    /// Stores how many megabytes earlier versions may take; 0 keeps none.
    void setVersionLimit(int megabytes);
    /// Stores the location of the data file; an absent path removes the key. False when the setting could not be
    /// written to the disk and is lost when the program ends.
    bool setDataFileLocation(const std::optional<QString>& path);
    void announce() const;

signals:
    /// A setting was written. `isKept` is false when it could not be written to the disk and is lost when the program
    /// ends.
    void written(bool isKept);

private:
    bool finish(Change change);

    QBUserDefaults& mDefaults;
    QBNotificationCenter& mNotificationCenter;
};
