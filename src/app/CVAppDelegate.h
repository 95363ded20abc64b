#pragma once

#include "shared/base/QBNotificationCenter.h"
#include "shared/base/QBUserDefaults.h"
#include "storage/CVDocumentFile.h"

#include <QObject>

#include <memory>
#include <set>

class CVAlerts;
class CVDocument;
class CVEditorWindows;
class CVFilePanels;
class CVMainWindowController;

/// The application: creates the one document from the user's data file and its main window, tells the user what became
/// of reading and saving, and lets the window close only when the last save has ended. Owns all of these.
class CVAppDelegate final : public QObject {
    Q_OBJECT

public:
    /// `alerts` and `panels` outlive the delegate.
    CVAppDelegate(std::unique_ptr<QSettings> settings, CVStandardFolders folders, CVAlerts& alerts,
                  CVFilePanels& panels);
    ~CVAppDelegate() override;

    /// Opens the document and shows its window.
    void applicationDidFinishLaunching();

    [[nodiscard]] CVDocument& document() { return *mDocument; }
    /// Null before the launch.
    [[nodiscard]] CVMainWindowController* mainWindow() { return mMainWindow.get(); }
    [[nodiscard]] CVSaveQueue& saves() { return mFile.saves(); }

private:
    void makeWindowControllers();
    void handleSaveFinished(const CVSaveOutcome& outcome);
    void tellAboutReading(const CVLoadReport& report);
    /// Whether the window may close: not while changes would be lost, unless the user says so.
    [[nodiscard]] bool mayClose();

    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    CVDocumentFile mFile;
    std::unique_ptr<CVDocument> mDocument;
    std::unique_ptr<CVEditorWindows> mEditorWindows;
    std::unique_ptr<CVMainWindowController> mMainWindow;
    /// Kept copies that the user has been told of.
    std::set<QString> mToldCopies;
};
