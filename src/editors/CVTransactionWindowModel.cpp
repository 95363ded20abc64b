#include "editors/CVTransactionWindowModel.h"

#include "model/CVIsReadOnly.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "widgets/fields/CVCellAlignment.h"

#include <array>
#include <utility>

namespace {

constexpr std::array<CVEditorColumn, CVTransactionWindowModel::ColumnCount> kCellColumns{
    {{QLatin1StringView("userflag"), QT_TRANSLATE_NOOP("CVEditorModel", "Flag"), Qt::AlignCenter,
      Qt::ItemIsUserCheckable},
     {QLatin1StringView("date"), QT_TRANSLATE_NOOP("CVEditorModel", "Date"), kCVNumberAlignment},
     {QLatin1StringView("amount"), QT_TRANSLATE_NOOP("CVEditorModel", "Amount"), kCVNumberAlignment},
     {QLatin1StringView("payto"), QT_TRANSLATE_NOOP("CVEditorModel", "Paid To/From")}}};

} // namespace

CVTransactionWindowModel::CVTransactionWindowModel(CVTransactions transactions, QObject* parent)
    : CVEditorModel(kCellColumns, parent)
    , mTransactions(std::move(transactions)) {}

void CVTransactionWindowModel::showFlag(int row) {
    emit dataChanged(index(row, UserFlag), index(row, UserFlag));
}

void CVTransactionWindowModel::updateFormatters() {
    mText = CVTransactionText();
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int CVTransactionWindowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mTransactions.size());
}

Qt::ItemFlags CVTransactionWindowModel::flags(const QModelIndex& index) const {
    const bool isReadOnly = index.isValid() && CVIsReadOnly(*mTransactions[static_cast<std::size_t>(index.row())]);
    // A table without editing, neither of texts nor of boxes.
    return isReadOnly ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren
                      : CVEditorModel::flags(index);
}

QVariant CVTransactionWindowModel::cell(int row, int column, int role) const {
    const CVTransaction& transaction = *mTransactions[static_cast<std::size_t>(row)];
    if (column != UserFlag)
        return role == Qt::DisplayRole ? text(transaction, column) : QVariant();
    if (role == Qt::CheckStateRole)
        return transaction.userFlag() ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::AccessibleTextRole)
        return mText.string(transaction, CVTransactionColumns::UserFlag);
    return {};
}

QString CVTransactionWindowModel::text(const CVTransaction& transaction, int column) const {
    switch (column) {
    case Date:
        return mText.string(transaction, CVTransactionColumns::Date);
    case Amount:
        return mText.string(transaction, CVTransactionColumns::Amount);
    default:
        return mText.string(transaction, CVTransactionColumns::ToFrom);
    }
}
