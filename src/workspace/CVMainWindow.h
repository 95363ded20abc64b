#pragma once

#include "contents/CVShownSets.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>

class CVBudgetContents;
class CVEntryStrip;
class CVFormattedField;
class CVMainMenu;
class CVReadOnlyNotice;
class CVReportsTab;
class CVSaveStatus;
class CVSetPicker;
class CVSummaryTab;
class CVTransactionsTab;
class QBUserDefaults;
class QTabWidget;

/// Builds the main window from its parts. CVMainWindowController decides what the parts do.
class CVMainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// The settings store these numbers.
    enum Tab { kTransactions, kSummary, kReports };

    /// The tabs show `contents`, which outlives the window.
    explicit CVMainWindow(const CVBudgetContents& contents);

    [[nodiscard]] CVMainMenu& menu() const { return *mMenu; }
    [[nodiscard]] CVEntryStrip& entryStrip() const { return *mEntryStrip; }
    [[nodiscard]] CVReadOnlyNotice& readOnlyNotice() const { return *mReadOnlyNotice; }
    [[nodiscard]] CVTransactionsTab& transactionsTab() const { return *mTransactionsTab; }
    [[nodiscard]] CVSummaryTab& summaryTab() const { return *mSummaryTab; }
    [[nodiscard]] CVReportsTab& reportsTab() const { return *mReportsTab; }
    [[nodiscard]] CVSaveStatus& saveStatus() const { return *mSaveStatus; }
    /// The tab widget, whose pages are indexed by `Tab`.
    [[nodiscard]] QTabWidget& tabs() const { return *mMainTabView; }

    /// Shows the names of the sets in the pop-up; fewer than two names hide the pop-up. Where all sets are shown, the
    /// title says so, the list can be sorted by set, and the entry strip names the set `recordsInto`.
    void setTransactionSets(const QStringList& names, int current, CVShownSets shownSets, const QString& recordsInto);

    /// Shows in place of the entry strip why nothing can be recorded.
    void showReadOnly(const QString& why);

    /// Restores the frame and the widths of the columns that `keep` stored, if any.
    void restore(const QBUserDefaults& defaults);
    void keep(QBUserDefaults& defaults) const;

    /// Commits what is being typed into a cell of a table.
    void commitOpenEditor();

    /// Gives the focus back to a cell whose text cannot be read and says why. False when no cell has such a text or the
    /// user was led to this text before.
    [[nodiscard]] bool returnToUnreadable();

    /// Sets the function that decides whether the window may close; without one the window always closes.
    void setMayClose(std::function<bool()> mayClose) { mMayClose = std::move(mayClose); }

signals:
    /// The user picked the set with that index.
    void transactionSetPicked(int index);
    void allSetsPicked();
    /// The user has dropped a file on the window.
    void fileDropped(const QString& path);
    /// The user's locale has changed.
    void localeChanged();
    /// The window is about to close and can no longer be kept open.
    void closing();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// The file that would be dropped; empty when nothing can be done with what is dragged, or just now.
    [[nodiscard]] QString droppedFile(const QDropEvent& event) const;
    void updateTitle();

    CVEntryStrip* mEntryStrip;
    CVReadOnlyNotice* mReadOnlyNotice;
    /// Created before its pages, as the pop-up of sets is, so that the Tab key reaches both before the pages.
    QTabWidget* mMainTabView;
    CVSetPicker* mSetPicker;
    CVTransactionsTab* mTransactionsTab;
    CVSummaryTab* mSummaryTab;
    CVReportsTab* mReportsTab;
    CVSaveStatus* mSaveStatus;
    CVMainMenu* mMenu = nullptr;
    CVShownSets mShownSets = CVShownSets::Current;
    std::function<bool()> mMayClose;
    /// The field and the text of the last `returnToUnreadable`.
    QPointer<CVFormattedField> mUnreadable;
    QString mUnreadableText;
};
