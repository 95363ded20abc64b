#pragma once

#include <QString>

#include <set>

class CVAlerts;
class CVMainWindowController;
class QWidget;
struct CVSaveOutcome;

/// Tells the user how saves ended: in the status line of the main window, and in an alert what must not be missed, each
/// thing once, and trouble with earlier versions once again after a save without it. References the alerts, which
/// outlive it.
class CVSaveTeller final {
public:
    explicit CVSaveTeller(CVAlerts& alerts) : mAlerts(alerts) {}

    /// `isSaving` is whether another save is under way or waiting. `mover` is the window in which the data file is
    /// moved; null when there is none.
    void tell(const CVSaveOutcome& outcome, const CVMainWindowController& window, bool isSaving,
              QWidget* mover = nullptr);
    /// The user has been told about this kept copy; false when that was so before.
    [[nodiscard]] bool markAsTold(const QString& keptCopy) { return mToldCopies.insert(keptCopy).second; }

private:
    CVAlerts& mAlerts;
    std::set<QString> mToldCopies;
    std::set<QString> mToldTroubles;
};
