#pragma once

#include <QObject>
#include <QString>

class QSocketNotifier;

/// Tells when something in a folder changes. A hint only: what is changed on another computer of a network share is not
/// told, and without the system's help nothing is.
class CVFolderWatch final : public QObject {
    Q_OBJECT

public:
    CVFolderWatch();
    ~CVFolderWatch() override;

    /// Watches that folder and no other. May be called on another thread, because a hanging disk blocks it.
    void follow(const QString& folder);

signals:
    /// Emitted on the thread on which the object was made.
    void changed();

private:
    void drain();

    int mDescriptor = -1;
    int mWatch = -1;
    QSocketNotifier* mNotifier = nullptr;
};
