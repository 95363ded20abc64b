#pragma once

#include "history/CVHistoryHost.h"

#include <QCoreApplication>

#include <memory>
#include <optional>

class CVAlerts;
class CVAppDelegate;
class CVDocumentFile;
class CVFilePanels;

/// What the program does with earlier versions: brings lines back, returns to one, copies one, and takes them along
/// when the data file moves. References the application, the data file, the alerts and the panels, which outlive it.
class CVHistoryOperations final : public CVHistoryHost {
    Q_DECLARE_TR_FUNCTIONS(CVHistoryOperations)

public:
    CVHistoryOperations(CVAppDelegate& app, CVDocumentFile& file, CVAlerts& alerts, CVFilePanels& panels)
        : mApp(app)
        , mFile(file)
        , mAlerts(alerts)
        , mPanels(panels) {}

    int bringBack(const CVDocument& version, const CVBudgetDifferences& lines) override;
    bool returnTo(const QString& path, QWidget& asker) override;
    bool saveCopy(const QString& path, QWidget& asker) override;

    /// Moves the versions of the data file at `from` to the one at `to`, where the file that was left behind becomes
    /// one too, and the notes of imports. Answers why not, in one sentence for each of both, empty when they are there;
    /// what could not be moved is at the old place.
    [[nodiscard]] QString moveVersions(const QString& from, const QString& to);

private:
    [[nodiscard]] std::unique_ptr<CVDocument> read(const QString& path, QWidget& asker);
    /// Keeps the present state when the user wants no versions, because then no save does it. Whether it is kept.
    [[nodiscard]] bool keepPresentState(QWidget& asker);
    [[nodiscard]] QString proposedName(const QString& path) const;
    /// Absent on success.
    [[nodiscard]] std::optional<QString> writeCopy(const QString& path, const QString& target);

    CVAppDelegate& mApp;
    CVDocumentFile& mFile;
    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
};
