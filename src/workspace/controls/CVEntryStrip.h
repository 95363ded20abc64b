#pragma once

#include "contents/CVEntry.h"

#include <QWidget>

class CVCompletingComboBox;
class CVDateField;
class CVMoneyField;
class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

/// The row of fields in which a transaction is entered; two rows where the window is narrow. Return in any of them asks
/// to record, as the button does; the strip itself records nothing and shows no alerts. Whoever is told of a problem
/// shows it and calls `focusField`.
class CVEntryStrip final : public QWidget {
    Q_OBJECT

public:
    explicit CVEntryStrip(QWidget* parent = nullptr);

    /// Takes what was typed into the date and the amount; the problem of the first of them that cannot be read.
    [[nodiscard]] std::optional<CVEntryProblem> endEditing();
    [[nodiscard]] CVEntry entry() const;

    /// The amount to zero.
    void resetAmount();
    /// Everything but the date to empty or off.
    void clearFields();
    void setPaidToItems(const QStringList& items);
    void setCategoryItems(const QStringList& items);
    /// With all of its text selected.
    void focusField(CVEntryField field);
    /// Shows date and amount as the locale now in force writes them, with their values as they are.
    void localeChanged();

signals:
    void recordRequested();
    /// The user has left the date for another field though it is blank or no date. Not when the next thing the user
    /// does is to record, which finds the same problem; not when the keyboard went to another window or a menu.
    void dateRefused(const CVEntryProblem& problem);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addField(QGridLayout& layout, QWidget* field, const char* objectName, const QString& label,
                  const QString& accessibleName, int stretch);
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
    /// The date was left unreadable and the user does not know yet.
    bool mIsDateUntold = false;
};
