#pragma once

#include <QObject>
#include <QString>

#include <optional>

class QBNotificationCenter;
class QBUserDefaults;

/// The settings as the preferences' controls write them: at once, to the disk too. References the user defaults and the
/// notification centre, which outlive it.
class CVPreferenceStore final : public QObject {
    Q_OBJECT

public:
    enum class Change : bool {
        Silent,
        /// The main window is told to read its settings again.
        Announced
    };

    CVPreferenceStore(QBUserDefaults& defaults, QBNotificationCenter& notificationCenter);

    [[nodiscard]] QBUserDefaults& defaults() const { return mDefaults; }
    [[nodiscard]] QBNotificationCenter& notificationCenter() const { return mNotificationCenter; }

    void setInteger(const char* key, int value, Change change);
    void setBool(const char* key, bool value, Change change);
    /// An absent path removes the key. False when the disk does not have it: it is gone with the process.
    bool setDataFileLocation(const std::optional<QString>& path);
    void announce() const;

signals:
    /// Something was written; when it is not kept, it is gone with the process.
    void written(bool isKept);

private:
    bool finish(Change change);

    QBUserDefaults& mDefaults;
    QBNotificationCenter& mNotificationCenter;
};
