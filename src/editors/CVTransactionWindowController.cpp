#include "editors/CVTransactionWindowController.h"

#include "base/CVNotifications.h"
#include "base/QBMoney.h"
#include "base/QBNotificationCenter.h"
#include "budget/CVLabelOfFrequency.h"
#include "editors/CVEditorTable.h"
#include "editors/CVTransactionWindowModel.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "widgets/CVAttentionColourOn.h"
#include "widgets/CVWrappingLayout.h"
#include "widgets/fields/CVAllowAnyLength.h"
#include "widgets/fields/CVCopyableField.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int kCellWindowWidthInDigits = 76;
constexpr int kCellWindowHeightInLines = 24;

} // namespace

CVTransactionWindowController::CVTransactionWindowController(CVDocument& document, const CVTransactions& transactions,
                                                             QWidget* parent)
    : CVEditorWindow(tr("Transaction Window"), "Transaction Window", document.userDefaults(), parent)
    , mDocument(document)
    , mModel(new CVTransactionWindowModel(transactions, this))
    , mTransactionTable(new CVEditorTable(*mModel, CVTransactionWindowModel::PayTo, this))
    , mCategoryField(new QLineEdit(this)) {
    addCategoryField();
    addTable();
    addAmounts();
    computeAmounts();
    restoreFrame(kCellWindowWidthInDigits, kCellWindowHeightInLines);
    mTransactionTable->setFocus();

    connect(mModel, &CVTransactionWindowModel::toggled, this, &CVTransactionWindowController::toggleFlag);
    mDocument.notificationCenter().addObserver(QLatin1String(CVNotifications::kMoneyFormatterChanged), this,
                                               [this](const QBNotification&) { moneyFormatChanged(); });
}

void CVTransactionWindowController::addTable() {
    mTransactionTable->setObjectName(QStringLiteral("mTransactionTable"));
    mTransactionTable->setAccessibleName(tr("Cell Transactions"));
    mTransactionTable->setSelectionMode(QAbstractItemView::SingleSelection);
    mTransactionTable->setUsualWidths({8, 14, 16, 0});
    mTransactionTable->setMessage(mModel->rowCount() > 0 ? QString() : tr("No transactions in this cell."));
    contents().addWidget(mTransactionTable);
}

void CVTransactionWindowController::addCategoryField() {
    mCategoryField->setObjectName(QStringLiteral("mCategoryField"));
    mCategoryField->setAccessibleName(tr("Category"));
    CVAllowAnyLength(*mCategoryField);
    mCategoryField->setReadOnly(true);
    mCategoryField->setFrame(false);
    mCategoryField->setFocusPolicy(Qt::ClickFocus);
    QPalette transparent;
    transparent.setBrush(QPalette::Base, Qt::NoBrush);
    mCategoryField->setPalette(transparent);
    auto* const line = new QHBoxLayout;
    line->addWidget(new QLabel(tr("Category:"), this));
    line->addWidget(mCategoryField, 1);
    contents().addLayout(line);
}

void CVTransactionWindowController::addAmounts() {
    auto* const line = new CVWrappingLayout;
    const auto part = [line] {
        auto* const field = new QHBoxLayout;
        line->addPart(field, line->count() == 0 ? 1 : 0);
        return field;
    };
    QHBoxLayout* const first = part();
    first->addStretch();
    mSpentField = CVCopyableField::addTo(*first, "mSpentField", tr("Spent:"), tr("Spent"), this);
    const QString planned = plannedText();
    mPlannedField = CVCopyableField::addTo(*part(), "mPlannedField", tr("%1:").arg(planned), planned, this);
    mDiffereceField = CVCopyableField::addTo(*part(), "mDiffereceField", tr("Difference:"), tr("Difference"), this);
    line->setSpacing(fontMetrics().height());
    contents().addLayout(line);
}

std::shared_ptr<const CVCategory> CVTransactionWindowController::category() const {
    const auto& transactions = mModel->transactions();
    return transactions.empty() ? nullptr : mDocument.getCategoryByUniqueID(transactions.back()->categoryID());
}

QString CVTransactionWindowController::plannedText() const {
    const auto category = this->category();
    const bool hasPlan = category && category->expenseTarget() != 0;
    const QString frequency = hasPlan ? CVLabelOfFrequency(category->expenseFrequency()) : QString();
    return frequency.isEmpty() ? tr("Planned") : tr("Planned (%1)").arg(frequency);
}

void CVTransactionWindowController::computeAmounts() {
    mSpent = 0;
    for (const auto& transaction : mModel->transactions())
        mSpent = RoundDoubleToTwoPlaces(mSpent + transaction->amount());
    const auto category = this->category();
    mPlanned = category ? category->expenseTarget() : 0;
    mCategoryField->setText(category ? category->categoryName() : QString());
    // A name that is too long for the field shows its beginning.
    mCategoryField->setCursorPosition(0);
    showAmounts();
}

void CVTransactionWindowController::showAmounts() {
    const QBMoneyFormatter formatter;
    const double difference = mPlanned - mSpent;
    mSpentField->setText(formatter.string(mSpent));
    mPlannedField->setText(formatter.string(mPlanned));
    mDiffereceField->setText(formatter.string(difference));
    if (RoundDoubleToTwoPlaces(difference) < 0) {
        QPalette attention = mDiffereceField->palette();
        attention.setColor(QPalette::Text, CVAttentionColourOn(palette(), QPalette::Window));
        mDiffereceField->setPalette(attention);
    }
}

void CVTransactionWindowController::toggleFlag(int row) {
    CVTransaction& transaction = *mModel->transactions()[static_cast<std::size_t>(row)];
    transaction.setUserFlag(!transaction.userFlag());
    mModel->showFlag(row);
    mDocument.workbookSave();
}

void CVTransactionWindowController::moneyFormatChanged() {
    mModel->updateFormatters();
    showAmounts();
}
