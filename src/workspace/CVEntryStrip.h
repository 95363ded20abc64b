#pragma once

#include "workspace/CVEntry.h"

#include <QWidget>

class CVCompletingComboBox;
class CVDateField;
class CVMoneyField;
class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

/// The row of fields in which a transaction is entered. Return in any of them asks to record, as the button does; the
/// strip itself records nothing.
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
    void focusField(CVEntryField field);

signals:
    void recordRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addField(QGridLayout& layout, QWidget* field, const char* objectName, const QString& label,
                  const QString& accessibleName, int stretch);
    [[nodiscard]] QWidget* widgetOf(CVEntryField field) const;

    CVDateField* mExpenseDate;
    CVMoneyField* mExpenseAmountField;
    CVCompletingComboBox* mExpenseToFromComboBox;
    QLineEdit* mForField;
    CVCompletingComboBox* mExpenseCategoryComboBox;
    QCheckBox* mTaxCheckbox;
    QPushButton* mRecordButton;
};
