#pragma once

#include <QObject>

#include <chrono>

class CVAlerts;
class CVAppDelegate;
class CVDocumentFile;

/// The end of the main window and of the program: saves what is in no file yet, asks the user where that fails, and
/// ends without asking where nobody can be asked. References the application, the data file and the alerts, which
/// outlive it.
class CVEnding final : public QObject {
    Q_OBJECT

public:
    /// The time that a disk has to save where nobody can be asked.
    static constexpr std::chrono::seconds kLastPatience{10};

    CVEnding(CVAppDelegate& app, CVDocumentFile& file, CVAlerts& alerts);

    /// Whether the main window may close: not while changes would be lost, unless the user agrees.
    [[nodiscard]] bool mayClose();
    /// Whether the main window closes for good: a window that is shown now would keep the program alive, and nobody
    /// would see it.
    [[nodiscard]] bool hasBegun() const { return mHasBegun; }
    /// Saves everything that has been entered, also an entry that is still being typed, and waits for the save.
    void keepEverything();
    /// What the user must know of the last save when the program ends: why it failed, or that the disk does not answer.
    /// Empty when everything is saved.
    [[nodiscard]] QString whatIsNotSaved();
    /// Closes all windows, waits for the last save and ends the event loop, with status 1 when that save has failed.
    /// Open windows and questions are closed as with Escape.
    void endWithoutAsking();

private:
    [[nodiscard]] bool isEverythingSaved();
    void saveWhatIsLost();
    [[nodiscard]] bool saveAtLast();

    CVAppDelegate& mApp;
    CVDocumentFile& mFile;
    CVAlerts& mAlerts;
    bool mEndsWithoutAsking = false;
    bool mHasBegun = false;
};
