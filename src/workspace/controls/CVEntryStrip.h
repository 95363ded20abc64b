#pragma once

#include "contents/CVEntry.h"

#include <QWidget>

class CVCompletingComboBox;
class CVDateField;
class CVMoneyField;
class CVNewCategoryNote;
class CVProposedText;
class CVRecordingNote;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// The row of fields in which the user enters a transaction; two rows where the window is narrow. Return in any field
/// asks to record, as the Record button does. The strip records nothing and shows no alerts: its owner shows a problem
/// and calls `focusField`. A note behind the name of the field says when recording would make a new category.
class CVEntryStrip final : public QWidget {
    Q_OBJECT

public:
    explicit CVEntryStrip(QWidget* parent = nullptr);

    /// Reads the typed date and amount. Returns the problem of the first of them that cannot be read.
    [[nodiscard]] std::optional<CVEntryProblem> endEditing();
    [[nodiscard]] CVEntry entry() const;
    /// Shows an entry for the user to record.
    void setEntry(const CVEntry& entry);
    /// Whether the user has entered something since the last `setEntry` or `noteRecorded`. Reads the typed date and
    /// amount.
    [[nodiscard]] bool hasUnrecordedEntry();
    /// What stands in the fields is recorded.
    void noteRecorded();

    /// Proposes a purpose and a category as completions where nothing stands in the field; what the user has entered
    /// there stays. An empty text takes the former proposal back.
    void propose(const QString& xfor, const QString& category);

    void resetAmount();
    /// Clears every field except the date and unticks the tax box.
    void clearFields();
    /// Says below the fields into which set is recorded; says nothing without a name.
    void sayRecordingInto(const std::optional<QString>& set);
    void setPaidToItems(const QStringList& items);
    void setCategoryItems(const QStringList& items);
    /// Gives a field the focus and selects all of its text.
    void focusField(CVEntryField field);
    /// Shows the date and the amount in the locale now in force; their values stay the same.
    void localeChanged();

signals:
    void recordRequested();
    /// The user is about to enter a payee.
    void payeeFocused();
    /// The user has changed the payee; a completion counts as typed.
    void payeeEntered(const QString& payee);
    /// The user has moved the focus from a blank or invalid date to another field. Not emitted when the user records
    /// next, because recording finds the same problem, nor when another window or a menu takes the focus.
    void dateRefused(const CVEntryProblem& problem);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* addField(QGridLayout& layout, QWidget* field, const char* objectName, const QString& label,
                     const QString& accessibleName, int stretch);
    void addNewCategoryNote(QGridLayout& layout, QLabel& caption);
    void adjustMetrics();
    [[nodiscard]] std::optional<CVEntryProblem> dateProblem() const;
    void dateLeftUnreadable();
    void tellOfDate();
    [[nodiscard]] QWidget* widgetOf(CVEntryField field) const;

    CVDateField* mExpenseDate;
    CVMoneyField* mExpenseAmountField;
    CVCompletingComboBox* mExpenseToFromComboBox;
    QLineEdit* mForField;
    CVCompletingComboBox* mExpenseCategoryComboBox;
    QCheckBox* mTaxCheckbox;
    QPushButton* mRecordButton;
    CVNewCategoryNote* mNewCategoryNote;
    CVRecordingNote* mRecordingNote;
    CVProposedText* mProposedFor;
    CVProposedText* mProposedCategory;
    /// What the fields held when it was last recorded or set.
    CVEntry mKnownEntry;
    /// The program changes the fields, not the user.
    bool mIsSettingFields = false;
    /// The user has left an unreadable date and `dateRefused` has not been emitted for it yet.
    bool mIsDateProblemPending = false;
};
