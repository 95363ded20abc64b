#pragma once

#include "app/CVUpdateController.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "preferences/CVPreferenceHost.h"
#include "storage/CVDocumentFile.h"

#include <QObject>

#include <functional>
#include <memory>
#include <set>

class CVAlerts;
class CVDocument;
class CVEditorWindows;
class CVFilePanels;
class CVHelpOpener;
class CVMainWindowController;
class CVPreferenceWindowController;
class CVPrintPanels;
enum class CVCommand;

/// The application: creates the one document from the user's data file and its main window, tells the user what became
/// of reading and saving, and lets the window close only when the last save has ended. Carries out the commands that
/// concern no document: preferences, support, new versions. Owns all of these.
class CVAppDelegate final : public QObject, private CVPreferenceHost {
    Q_OBJECT

public:
    /// `alerts` and `panels` outlive the delegate.
    CVAppDelegate(std::unique_ptr<QSettings> settings, CVStandardFolders folders, CVAlerts& alerts,
                  CVFilePanels& panels);
    ~CVAppDelegate() override;

    /// Opens addresses; without it none is opened. Outlives the delegate.
    void setURLOpener(CVURLOpener* opener) { mUpdates.setURLOpener(opener); }
    /// Shows help; without it there are no Help buttons. Outlives the delegate.
    void setHelp(CVHelpOpener* help) { mHelp = help; }
    /// Through which everything is printed; without them nothing is. They outlive the delegate.
    void setPrintPanels(CVPrintPanels* panels);

    /// Hears how far the reading of the data file has come (see `CVDocumentFile`); none at first.
    void setReadingProgress(std::function<bool(double part)> progress) {
        mFile.setReadingProgress(std::move(progress));
    }

    /// Looks for a newer version if one is due, opens the document and shows its window. False when the reading of a
    /// large data file was cancelled: nothing is open then, and nothing was changed.
    [[nodiscard]] bool applicationDidFinishLaunching();

    /// Shows the main window in front of others, whatever has become of it.
    void comeToFront();
    /// Saves all that has been entered, what is being typed into a cell included, and waits for it.
    void keepEverything();
    /// Does so and ends the event loop, with status 1 when the last save has failed. Open windows are closed as with
    /// Escape, questions answered as with Escape.
    void endWithoutAsking();

    /// The start page of the help book; without help nothing.
    void showHelp();
    /// Each in the user's own program.
    void contactTechSupport();
    void goToWebSite();
    void goToSupportForums();
    void showPreferences();
    /// Returns when the user has closed the window.
    void showAbout();
    /// Looks for a newer version and tells the user in that window; returns at once.
    void checkForNewVersion(QWidget& asker) override;
    /// Puts another document in the place of the present one, whose window goes.
    void setDocument(std::unique_ptr<CVDocument> document);

    [[nodiscard]] CVDocument& document() { return *mDocument; }
    /// Null before the launch.
    [[nodiscard]] CVMainWindowController* mainWindow() { return mMainWindow.get(); }
    /// Null until they are first shown.
    [[nodiscard]] CVPreferenceWindowController* preferences() { return mPreferences.get(); }
    [[nodiscard]] CVUpdateController& updates() { return mUpdates; }
    [[nodiscard]] CVSaveQueue& saves() { return mFile.saves(); }

private:
    void makeWindowControllers();
    void obey(CVCommand command);
    void standBeforeMainWindow();
    void showUpdatePreferences();
    [[nodiscard]] QString waitForSaves() override;
    void reopenDocument() override;
    void handleSaveFinished(const CVSaveOutcome& outcome);
    void showWhetherSaved(const CVLoadReport& report) const;
    void tellAboutReading(const CVLoadReport& report);
    /// Waits for the last save; whether all that was entered is in the file.
    [[nodiscard]] bool saveAtLast();
    /// Whether the window may close: not while changes would be lost, unless the user says so.
    [[nodiscard]] bool mayClose();

    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    CVDocumentFile mFile;
    CVUpdateController mUpdates;
    CVHelpOpener* mHelp = nullptr;
    CVPrintPanels* mPrintPanels = nullptr;
    std::unique_ptr<CVDocument> mDocument;
    std::unique_ptr<CVEditorWindows> mEditorWindows;
    std::unique_ptr<CVMainWindowController> mMainWindow;
    std::unique_ptr<CVPreferenceWindowController> mPreferences;
    /// Kept copies that the user has been told of.
    std::set<QString> mToldCopies;
    /// An offer of a newer version has led to them before there was a window in front of which they could stand.
    bool mWantsUpdatePreferences = false;
    bool mEndsWithoutAsking = false;
    bool mIsReopening = false;
};
