#pragma once

#include <QObject>
#include <QString>

#include <any>
#include <functional>

/// One announcement: its name and, for the few that carry one, the object it is about.
struct QBNotification {
    QString name;
    std::any object;
};

/// Delivers notifications to the observers of their name, in the order of registration. A notification that is posted
/// in another thread than the observer's is delivered by the event loop of the observer's thread.
class QBNotificationCenter final : public QObject {
    Q_OBJECT

public:
    QBNotificationCenter();

    /// Calls `handler` for every notification of that name until `observer` is destroyed.
    void addObserver(const QString& name, QObject* observer, std::function<void(const QBNotification&)> handler) const;
    void postNotification(const QString& name, std::any object = {});

signals:
    void posted(const QBNotification& notification);
};
