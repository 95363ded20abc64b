#pragma once

#include <QCoreApplication>

#include <optional>

class CVAlerts;
class CVAppDelegate;
class CVDocumentFile;
struct CVLoadReport;

/// What the program does with a budget that was read: opens it in the place of another one, and tells the user what was
/// not understood. References the application, the data file and the alerts, which outlive it.
class CVReadingOperations final {
    Q_DECLARE_TR_FUNCTIONS(CVReadingOperations)

public:
    CVReadingOperations(CVAppDelegate& app, CVDocumentFile& file, CVAlerts& alerts)
        : mApp(app)
        , mFile(file)
        , mAlerts(alerts) {}

    /// These two do what `CVPreferenceHost` says of `reopenDocument` and `startNewDocument`.
    [[nodiscard]] std::optional<QString> reopen();
    void startNew();
    /// Tells the user why a file could not be read, or what of it was not understood; nothing else.
    void tell(const CVLoadReport& report);
    /// Says in the status line that a budget is saved, if it was read from a file.
    void showWhetherSaved(const CVLoadReport& report);

private:
    CVAppDelegate& mApp;
    CVDocumentFile& mFile;
    CVAlerts& mAlerts;
};
