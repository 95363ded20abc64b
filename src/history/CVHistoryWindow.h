#pragma once

#include "comparing/CVLineWindow.h"
#include "history/CVVersionReader.h"

#include <memory>

class CVAlerts;
class CVHistoryHost;
class CVVersionTable;
class QSplitter;

/// The window with the earlier versions: a list of them and, for the chosen one, what was removed, added and changed
/// since. All references but the document outlive the window.
class CVHistoryWindow final : public CVLineWindow {
    Q_OBJECT

public:
    /// Without `help` there is no Help button.
    CVHistoryWindow(CVDocument& document, CVHistoryHost& host, CVAlerts& alerts, CVHelpOpener* help = nullptr);
    ~CVHistoryWindow() override;

    /// Shows the window with the newest version chosen, or brings it to the front.
    void showWindow();
    /// The data file was saved, so there may be another version.
    void versionsChanged();

private:
    void addButtons(CVHelpOpener* help);
    void restoreLooks();

    /// Lists the versions and begins to compare them with the present budget.
    void refresh() override;
    void stopReading() override;
    void updateFormats() override;
    void keepLooks() override;
    [[nodiscard]] QString progress(bool isLate) const override;
    void versionPicked();
    void take(const CVVersionFindings& findings);
    void showLines(const CVVersionFindings& findings);
    void showState();
    void showMessage();
    void updateButtons();

    void saveCopy();
    void returnToVersion();
    void bringBack();

    CVHistoryHost& mHost;
    CVAlerts& mAlerts;
    QSplitter* mSplitter;
    CVVersionTable* mVersions;
    QPushButton* mSaveCopy = nullptr;
    QPushButton* mReturn = nullptr;
    QPushButton* mBringBack = nullptr;
    /// The paths of which nothing was found since the reading began.
    QStringList mAwaited;
    /// What the lines are made of; its path is empty when there are none.
    CVVersionFindings mShown;
    /// Null while the window is closed.
    std::unique_ptr<CVVersionReader> mReader;
};
