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

/// The preferences: a window of four tabs beside the main window. Every control writes its setting at once; what is
/// being typed is kept when the window closes. The document may be replaced; all else that is referenced outlives it.
class CVPreferenceWindowController final : public QDialog {
    Q_OBJECT

public:
    /// The tab of the update check.
    static constexpr const char* kUpdatePane = "UpdateID";

    /// Without `help` there is no Help button.
    CVPreferenceWindowController(CVDocument& document, CVPreferenceHost& host, CVAlerts& alerts, CVFilePanels& panels,
                                 CVHelpOpener* help = nullptr);

    /// Keeps what is being typed: the program may end while the window is open.
    ~CVPreferenceWindowController() override;

    void setDocument(CVDocument& document);
    /// Shows the window, or brings it to the front, with the settings as they are now.
    void showWindow();
    void displayUpdatePane();
    /// Takes what is being typed; remembers the frame.
    void keep();

    /// Every way of closing the window leads here.
    void done(int result) override;

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
