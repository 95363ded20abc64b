#pragma once

#include "preferences/CVPreferenceStore.h"

#include <QDialog>

class CVAlerts;
class CVDataFilePane;
class CVDocument;
class CVEntryPane;
class CVFilePanels;
class CVHelpOpener;
class CVPreferenceHost;
class CVPreferencePane;
class CVUpdatePane;
class QLabel;
class QTabWidget;

/// The preferences: a window with four tabs that stays open beside the main window. Every control writes its setting at
/// once; what the user is typing is read when the window closes. The document may be replaced; all other references
/// outlive the window.
class CVPreferenceWindowController final : public QDialog {
    Q_OBJECT

public:
    /// The identifier of the tab with the update check.
    static constexpr const char* kUpdatePane = "UpdateID";
    static constexpr const char* kDataFilePane = "DataFileID";

    /// Without `help` there is no Help button.
    CVPreferenceWindowController(CVDocument& document, CVPreferenceHost& host, CVAlerts& alerts, CVFilePanels& panels,
                                 CVHelpOpener* help = nullptr);

    /// Reads what the user is typing, because the program may end while the window is open.
    ~CVPreferenceWindowController() override;

    void setDocument(CVDocument& document);
    /// Shows the window with the current settings, or brings it to the front.
    void showWindow();
    void displayUpdatePane();
    void displayDataFilePane();
    /// Reads what the user is typing and remembers the frame.
    void keep();

    /// Called for every way of closing the window.
    void done(int result) override;

signals:
    /// The user has cleared the data file, which held that many transactions.
    void cleared(int transactions);

private:
    void addPane(CVPreferencePane& pane, const QString& title, const char* identifier);
    void addButtons(CVHelpOpener* help);
    void selectTab(const QString& identifier);
    void tabSelected(int index);
    void load();
    void showWhetherKept(bool isKept);

    CVPreferenceStore mStore;
    QTabWidget* mTabView;
    CVEntryPane* mEntryPane;
    CVUpdatePane* mUpdatePane;
    CVDataFilePane* mDataFilePane;
    QLabel* mRemark;
    QList<CVPreferencePane*> mPanes;
};
