#pragma once

#include <QMainWindow>

#include <functional>

class CVEntryStrip;
class CVMainMenu;
class CVSaveStatus;
class CVTransactionList;
class CVTransactionsTab;
class QComboBox;
class QWidget;

/// The window and its parts, put together; what they do is the controller's.
class CVMainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// `list` outlives the window.
    explicit CVMainWindow(const CVTransactionList& list);

    [[nodiscard]] CVMainMenu& menu() const { return *mMenu; }
    [[nodiscard]] CVEntryStrip& entryStrip() const { return *mEntryStrip; }
    [[nodiscard]] CVTransactionsTab& transactionsTab() const { return *mTransactionsTab; }
    [[nodiscard]] CVSaveStatus& saveStatus() const { return *mSaveStatus; }

    /// Shows the pop-up of sets with these names; without a choice to make, with less than two, it is not there.
    void setTransactionSets(const QStringList& names, int current);

    /// Is asked when the window is about to close; a false answer keeps it open.
    void setMayClose(std::function<bool()> mayClose) { mMayClose = std::move(mayClose); }

signals:
    /// The user picked that set.
    void transactionSetPicked(int index);
    /// The window closes.
    void closing();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* makeSetPicker();

    CVEntryStrip* mEntryStrip;
    CVTransactionsTab* mTransactionsTab;
    CVSaveStatus* mSaveStatus;
    CVMainMenu* mMenu = nullptr;
    QComboBox* mTransactionSet;
    QWidget* mSetPicker;
    std::function<bool()> mMayClose;
};
