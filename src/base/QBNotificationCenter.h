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

/// Hands announcements from whoever posts them to whoever observes their name, in the order of registration.
/// An observer lives in its own thread: a notification from another thread is delivered by that thread's event loop.
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
