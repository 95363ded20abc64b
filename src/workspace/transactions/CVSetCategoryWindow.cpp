#include "workspace/transactions/CVSetCategoryWindow.h"

#include "format/QBLocale.h"
#include "model/CVTransaction.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "workspace/controls/CVNewCategoryNote.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// The width of the field, in letters.
constexpr int kLettersOfCategory = 30;

/// The name of the category that all of them have; null when they differ.
QString commonCategory(const CVTransactions& transactions) {
    const quint32 first = transactions.front()->categoryID();
    const bool isCommon = std::all_of(transactions.begin(), transactions.end(),
                                      [first](const auto& transaction) { return transaction->categoryID() == first; });
    return isCommon ? transactions.front()->categoryName() : QString();
}

} // namespace

CVSetCategoryWindow::CVSetCategoryWindow(const CVTransactions& transactions, const QStringList& categories,
                                         QWidget* parent)
    : QDialog(parent)
    , mCategory(new CVCompletingComboBox(this)) {
    setWindowTitle(tr("Set Category"));
    setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_DeleteOnClose);
    const auto count = static_cast<int>(transactions.size());
    auto* const caption = new QLabel(
        count == 1
            ? tr("&Category of the selected transaction:")
            : tr("&Category of the %1 selected transactions:", nullptr, count).arg(QBLocaleInForce().toString(count)),
        this);
    caption->setBuddy(mCategory);
    mCategory->setObjectName(QStringLiteral("mSetCategoryBox"));
    mCategory->setAccessibleName(tr("Category"));
    mCategory->setItems(categories);
    mCategory->setEditText(commonCategory(transactions));
    mCategory->setMinimumWidth(kLettersOfCategory * fontMetrics().averageCharWidth());
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    mSetButton = buttons->addButton(tr("&Set Category"), QDialogButtonBox::AcceptRole);
    mSetButton->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(mCategory, &QComboBox::editTextChanged, this, &CVSetCategoryWindow::updateButton);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(caption);
    layout->addWidget(mCategory);
    layout->addWidget(new CVNewCategoryNote(*mCategory, this));
    layout->addStretch();
    layout->addWidget(buttons);
    mCategory->setFocus();
    mCategory->lineEdit()->selectAll();
    updateButton();
}

void CVSetCategoryWindow::accept() {
    const QString name = mCategory->enteredText();
    if (name.isEmpty())
        return;
    // The window is closed first, so that what the receiver does is seen in the window below.
    QDialog::accept();
    emit categoryChosen(name);
}

void CVSetCategoryWindow::updateButton() {
    mSetButton->setEnabled(!mCategory->enteredText().isEmpty());
}
