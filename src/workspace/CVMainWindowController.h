#pragma once

#include "workspace/CVPaidToList.h"
#include "workspace/CVTransactionList.h"

#include <QObject>

#include <functional>
#include <memory>

class CVAlerts;
class CVDocument;
class CVMainWindow;
class CVSaveStatus;
class QMainWindow;

/// Owns the main window and the order of things in it: set-up, recording, removal, and the rebuild after every change.
/// References the document and the alerts, which outlive it.
class CVMainWindowController final : public QObject {
    Q_OBJECT

public:
    CVMainWindowController(CVDocument& document, CVAlerts& alerts);
    ~CVMainWindowController() override;

    void showWindow();
    [[nodiscard]] QMainWindow* window() const;
    [[nodiscard]] CVSaveStatus& saveStatus() const;
    /// Is asked before the window closes; a false answer keeps it open. Without one it always closes.
    void setMayClose(std::function<bool()> mayClose);

    /// Rebuilds everything that depends on the current transaction set.
    void getStarted();
    void reloadAllTables();
    /// Records what the entry strip holds, or says why not.
    void record();
    /// Removes the selected transactions once the user has confirmed it.
    void removeTransaction();
    /// Makes the set at that position of the document's sets the current one.
    void changeTransactionSet(int index);
    /// The user asks for that order of the list.
    void sortByColumn(const QString& identifier);

private:
    void windowDidLoad();
    void connectWindow();
    void observeNotifications();
    void mainSetup();
    void handleCategoryUpdate();
    void showTransactionSets();
    void updatePaidToAutocomplete();
    void showAbout();
    void restoreFrame();
    void saveFrame() const;

    CVDocument& mDocument;
    CVAlerts& mAlerts;
    CVTransactionList mList;
    CVPaidToList mPaidToList;
    std::unique_ptr<CVMainWindow> mWindow;
};
