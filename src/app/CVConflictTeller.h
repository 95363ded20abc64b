#pragma once

#include "versions/CVFilesBeside.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

class CVAppDelegate;

/// Tells the user once about each copy that a synchronizer has left beside the data file, by a remark that leads to
/// what the copy says. The saving thread looks for copies. References the application, which outlives it. Which copies
/// were told is kept in the settings.
class CVConflictTeller final : public QObject {
    Q_OBJECT

public:
    explicit CVConflictTeller(CVAppDelegate& app);

    /// Called when the main window is a new one.
    void start();
    /// Tells the copies that are known and of which the user has not been told.
    void tell();

    /// What lay beside the watched data file at the last look; empty before the first.
    [[nodiscard]] const CVFilesBeside& filesBeside() const { return mBeside; }

private:
    void take(const CVFilesBeside& files);
    void offer();
    [[nodiscard]] QStringList takeUntold();

    CVAppDelegate& mApp;
    CVFilesBeside mBeside;
    /// A synchronizer changes the folder several times for one copy.
    QTimer mSettles;
    /// What the last remark is about.
    QStringList mTold;
};
