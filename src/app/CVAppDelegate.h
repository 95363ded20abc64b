#pragma once

#include "app/CVSaveTeller.h"
#include "app/CVUpdateController.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "preferences/CVPreferenceHost.h"
#include "storage/CVDocumentFile.h"

#include <QObject>

#include <memory>

class CVAlerts;
class CVConflictTeller;
class CVDocument;
class CVEditorWindows;
class CVEnding;
class CVFilePanels;
class CVHelpOpener;
class CVHistoryOperations;
class CVHistoryWindow;
class CVImportOperations;
class CVLockOperations;
class CVMainWindowController;
class CVOutsideChanges;
class CVMergeOperations;
class CVPreferenceWindowController;
class CVPrintPanels;
class CVReadingOperations;
enum class CVCommand;

/// The application: makes the document from the user's data file and the main window for it, tells the user how reading
/// and saving ended, and lets the window close only when the last save has ended. Carries out the commands that concern
/// no document: preferences, support, new versions. Owns the document, the windows and the save queue.
class CVAppDelegate final : public QObject, private CVPreferenceHost {
    Q_OBJECT

public:
    /// `alerts` and `panels` outlive the delegate.
    CVAppDelegate(std::unique_ptr<QSettings> settings, CVStandardFolders folders, CVAlerts& alerts,
                  CVFilePanels& panels);
    ~CVAppDelegate() override;

    /// Sets what opens addresses; without it none is opened. The opener outlives the delegate.
    void setURLOpener(CVURLOpener* opener) { mUpdates.setURLOpener(opener); }
    /// Sets what shows help; without it there are no Help buttons. The help outlives the delegate.
    void setHelp(CVHelpOpener* help);
    /// Sets the panels through which everything is printed; without them nothing is printed. The panels outlive the
    /// delegate.
    void setPrintPanels(CVPrintPanels* panels);

    /// Looks for a newer version if one is due, opens the document and shows its window. Asks first when the data file
    /// is missing or cannot be read. False when the user then quits or cancels the reading: nothing is open, and
    /// nothing has changed.
    [[nodiscard]] bool applicationDidFinishLaunching();

    /// Takes what is typed and waits for the saves, see CVPreferenceHost.
    [[nodiscard]] QString waitForSaves() override;
    /// Shows the main window in front of others, even when it is minimised or hidden.
    void comeToFront();

    /// Shows the start page of the help book; without help it does nothing.
    void showHelp();
    /// These three open the user's own mail program or web browser.
    void contactTechSupport();
    void goToWebSite();
    void goToSupportForums();
    void showPreferences();
    /// Shows the earlier versions beside the main window and returns at once.
    void showEarlierVersions();
    /// Returns when the user has closed the window.
    void showAbout();
    /// Looks for a newer version and tells the user in `asker`; returns at once.
    void checkForNewVersion(QWidget& asker) override;
    /// Replaces the document, and its window by a new one.
    void setDocument(std::unique_ptr<CVDocument> document);
    /// Does the same after it has closed the window without asking; the former document must not be needed any more.
    void replaceDocument(std::unique_ptr<CVDocument> document);

    [[nodiscard]] CVDocument& document() { return *mDocument; }
    /// Whether the budget is only looked at, because another program has it open.
    [[nodiscard]] bool isReadOnly() const { return mFile.isReadOnly(); }
    /// Reads the data file into a new document, which replaces the present one, see CVPreferenceHost.
    [[nodiscard]] std::optional<QString> reopenDocument() override;
    /// Null before the launch.
    [[nodiscard]] CVMainWindowController* mainWindow() { return mMainWindow.get(); }
    /// Null until the preferences are first shown.
    [[nodiscard]] CVPreferenceWindowController* preferences() { return mPreferences.get(); }
    /// Null until the earlier versions are first shown.
    [[nodiscard]] CVHistoryWindow* earlierVersions() { return mHistory.get(); }
    [[nodiscard]] CVUpdateController& updates() { return mUpdates; }
    [[nodiscard]] CVSaveQueue& saves() { return mFile.saves(); }
    [[nodiscard]] CVEnding& ending() { return *mEnding; }
    [[nodiscard]] CVSaveTeller& saveTeller() { return mSaveTeller; }
    [[nodiscard]] CVOutsideChanges& outsideChanges() { return *mOutsideChanges; }
    [[nodiscard]] CVReadingOperations& readingOperations() { return *mReadingOperations; }
    [[nodiscard]] CVLockOperations& lockOperations() { return *mLockOperations; }
    [[nodiscard]] CVHistoryOperations& historyOperations() { return *mHistoryOperations; }
    [[nodiscard]] CVImportOperations& importOperations() { return *mImportOperations; }
    [[nodiscard]] CVMergeOperations& mergeOperations() { return *mMergeOperations; }
    [[nodiscard]] CVConflictTeller& conflictTeller() { return *mConflictTeller; }
    /// Keeps a window in front of the main window, which can be used meanwhile.
    void keepInFront(QWidget& window);

private:
    void makeWindowControllers();
    void carryOut(CVCommand command);
    void remarkClearing(int transactions);
    void showUpdatePreferences();
    void showDataFilePreferences();
    [[nodiscard]] bool claimPlace(const QString& path, PlaceUse use, QWidget& asker) override;
    void settlePlace() override;
    void startNewDocument() override;
    [[nodiscard]] QString moveVersions(const QString& from, const QString& to) override;
    void versionsDeleted() override;
    void handleSaveFinished(const CVSaveOutcome& outcome);
    void offer(const CVSaveOutcome& outcome);

    CVAlerts& mAlerts;
    CVFilePanels& mPanels;
    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    /// Declared before the file, so that the lock is let go after the last save.
    std::unique_ptr<CVLockOperations> mLockOperations;
    CVDocumentFile mFile;
    CVUpdateController mUpdates;
    CVHelpOpener* mHelp = nullptr;
    CVPrintPanels* mPrintPanels = nullptr;
    CVSaveTeller mSaveTeller;
    std::unique_ptr<CVHistoryOperations> mHistoryOperations;
    std::unique_ptr<CVOutsideChanges> mOutsideChanges;
    std::unique_ptr<CVDocument> mDocument;
    std::unique_ptr<CVEditorWindows> mEditorWindows;
    std::unique_ptr<CVMainWindowController> mMainWindow;
    std::unique_ptr<CVPreferenceWindowController> mPreferences;
    std::unique_ptr<CVHistoryWindow> mHistory;
    std::unique_ptr<CVImportOperations> mImportOperations;
    std::unique_ptr<CVMergeOperations> mMergeOperations;
    std::unique_ptr<CVConflictTeller> mConflictTeller;
    std::unique_ptr<CVReadingOperations> mReadingOperations;
    std::unique_ptr<CVEnding> mEnding;
    /// Whether the user asked for the preferences of updates before there was a main window; they are shown once it
    /// exists.
    bool mWantsUpdatePreferences = false;
    bool mIsReopening = false;
};
