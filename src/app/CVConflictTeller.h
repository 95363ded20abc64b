#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QTimer>

class CVAppDelegate;

/// Tells the user once about each copy that a synchronizer has left beside the data file, by a remark that leads to
/// what the copy says. References the application, which outlives it. Which copies were told is kept in the settings.
class CVConflictTeller final : public QObject {
    Q_OBJECT

public:
    explicit CVConflictTeller(CVAppDelegate& app);

    /// Looks for copies now, and from now on soon after the folder of the data file changes. Called once there is a
    /// main window, and again when the window or the data file is another one.
    void start();
    /// Looks whether there is a copy of which the user has not been told, and tells it.
    void look();

private:
    void offer();
    [[nodiscard]] QStringList takeUntold();

    CVAppDelegate& mApp;
    QFileSystemWatcher mFolder;
    /// A synchronizer changes the folder several times for one copy.
    QTimer mSettles;
    /// What the last remark is about.
    QStringList mTold;
};
