#pragma once

#include "history/CVVersionReader.h"

#include <QDialog>
#include <QTimer>

#include <memory>

class CVAlerts;
class CVDocument;
class CVHelpOpener;
class CVHistoryHost;
class CVVersionLinePane;
class CVVersionTable;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSplitter;

/// The window with the earlier versions: a list of them and, for the chosen one, what was removed, added and changed
/// since. Stays open beside the main window and follows the budget. The document may be replaced; all other references
/// outlive the window.
class CVHistoryWindow final : public QDialog {
    Q_OBJECT

public:
    /// Without `help` there is no Help button.
    CVHistoryWindow(CVDocument& document, CVHistoryHost& host, CVAlerts& alerts, CVHelpOpener* help = nullptr);
    ~CVHistoryWindow() override;

    void setDocument(CVDocument& document);
    /// Shows the window with the newest version chosen, or brings it to the front.
    void showWindow();
    /// The data file was saved, so there may be another version.
    void versionsChanged();

    /// Called for every way of closing the window; stops the reading.
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addRemarks();
    void addButtons(CVHelpOpener* help);
    QPushButton& addButton(QHBoxLayout& row, const QString& text, const char* name);
    void restoreLooks();
    void keepLooks();
    void observe();

    /// Lists the versions and begins to compare them with the present budget.
    void refresh();
    void compareSoon();
    void versionPicked();
    void take(const CVVersionFindings& findings);
    void showLines(const CVVersionFindings& findings);
    void showState();
    void showProgress();
    void showMessage();
    void updateButtons();
    void setRemark(const QString& remark);

    void saveCopy();
    void returnToVersion();
    void bringBack();

    CVDocument* mDocument;
    CVHistoryHost& mHost;
    CVAlerts& mAlerts;
    QSplitter* mSplitter;
    CVVersionTable* mVersions;
    CVVersionLinePane* mLines;
    QLabel* mRemark;
    QLabel* mProgress;
    QPushButton* mSaveCopy = nullptr;
    QPushButton* mReturn = nullptr;
    QPushButton* mBringBack = nullptr;
    /// Runs from a change of the budget on, so that several changes are compared once.
    QTimer mCompare;
    /// Runs from the beginning of a reading on: what is read sooner needs no progress.
    QTimer mShowsProgress;
    /// The paths of which nothing was found since the reading began.
    QStringList mAwaited;
    /// What the lines are made of; its path is empty when there are none.
    CVVersionFindings mShown;
    /// Null while the window is closed.
    std::unique_ptr<CVVersionReader> mReader;
};
