#pragma once

#include "model/CVCollections.h"

#include <QDialog>
#include <QStringList>

class CVCompletingComboBox;
class QPushButton;

/// The modal window in which the user chooses or types the category of several transactions. Deletes itself when it is
/// closed.
class CVSetCategoryWindow final : public QDialog {
    Q_OBJECT

public:
    /// Begins with the category that all of the transactions have, if there is one.
    CVSetCategoryWindow(const CVTransactions& transactions, const QStringList& categories, QWidget* parent);

    void accept() override;

signals:
    /// The user has decided; the name need not be one of those offered.
    void categoryChosen(const QString& name);

private:
    void updateButton();

    CVCompletingComboBox* mCategory;
    QPushButton* mSetButton;
};
