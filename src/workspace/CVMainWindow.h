#pragma once

#include <QMainWindow>
#include <QPointer>

#include <functional>

class CVBudgetContents;
class CVEntryStrip;
class CVFormattedField;
class CVMainMenu;
class CVReportsTab;
class CVSaveStatus;
class CVSetPicker;
class CVSummaryTab;
class CVTransactionsTab;
class QTabWidget;

/// The window and its parts, put together; what they do is the controller's.
class CVMainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// The tabs by the number that the view state keeps.
    enum Tab { kTransactions, kSummary, kReports };

    /// What the tabs show; it outlives the window.
    explicit CVMainWindow(const CVBudgetContents& contents);

    [[nodiscard]] CVMainMenu& menu() const { return *mMenu; }
    [[nodiscard]] CVEntryStrip& entryStrip() const { return *mEntryStrip; }
    [[nodiscard]] CVTransactionsTab& transactionsTab() const { return *mTransactionsTab; }
    [[nodiscard]] CVSummaryTab& summaryTab() const { return *mSummaryTab; }
    [[nodiscard]] CVReportsTab& reportsTab() const { return *mReportsTab; }
    [[nodiscard]] CVSaveStatus& saveStatus() const { return *mSaveStatus; }
    /// By `Tab`.
    [[nodiscard]] QTabWidget& tabs() const { return *mMainTabView; }

    /// Shows the pop-up of sets with these names; without a choice to make, with less than two, it is not there.
    void setTransactionSets(const QStringList& names, int current);

    /// Commits what is being typed into a cell of a table.
    void commitOpenEditor();

    /// Goes back to a cell whose text cannot be read and says why; false where there is none, or where that was done
    /// for the same text before.
    [[nodiscard]] bool returnToUnreadable();

    /// Is asked when the window is about to close; a false answer keeps it open.
    void setMayClose(std::function<bool()> mayClose) { mMayClose = std::move(mayClose); }

signals:
    /// The user picked that set.
    void transactionSetPicked(int index);
    /// The user's locale is another one now.
    void localeChanged();
    /// The window closes.
    void closing();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    CVEntryStrip* mEntryStrip;
    /// Made before its pages, as the pop-up beside its tabs is, so that Tab meets both before the pages.
    QTabWidget* mMainTabView;
    CVSetPicker* mSetPicker;
    CVTransactionsTab* mTransactionsTab;
    CVSummaryTab* mSummaryTab;
    CVReportsTab* mReportsTab;
    CVSaveStatus* mSaveStatus;
    CVMainMenu* mMenu = nullptr;
    std::function<bool()> mMayClose;
    /// What was last gone back to.
    QPointer<CVFormattedField> mUnreadable;
    QString mUnreadableText;
};
