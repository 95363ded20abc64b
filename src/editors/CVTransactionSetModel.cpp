#include "editors/CVTransactionSetModel.h"

#include "format/QBLocale.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"
#include "widgets/fields/CVCellAlignment.h"

#include <array>

namespace {

constexpr std::array<CVEditorColumn, CVTransactionSetModel::ColumnCount> kSetColumns{
    {{QLatin1StringView("name"), QT_TRANSLATE_NOOP("CVEditorModel", "Name"), kCVTextAlignment, Qt::ItemIsEditable},
     {QLatin1StringView("count"), QT_TRANSLATE_NOOP("CVEditorModel", "Transactions"), kCVNumberAlignment}}};

} // namespace

CVTransactionSetModel::CVTransactionSetModel(const CVDocument& document, QObject* parent)
    : CVEditorModel(kSetColumns, parent)
    , mDocument(document) {
    reload();
}

void CVTransactionSetModel::reload() {
    beginResetModel();
    mTransactionSetArray = mDocument.transactionSets();
    mCounts.clear();
    for (const auto& transaction : mDocument.transactions())
        ++mCounts[transaction->transactionSetID()];
    endResetModel();
}

void CVTransactionSetModel::showName(int row) {
    emit dataChanged(index(row, Name), index(row, Name));
}

const std::shared_ptr<CVTransactionSet>& CVTransactionSetModel::set(int row) const {
    return mTransactionSetArray.at(static_cast<std::size_t>(row));
}

qsizetype CVTransactionSetModel::count(int row) const {
    const auto found = mCounts.find(set(row)->uniqueID());
    return found == mCounts.end() ? 0 : found->second;
}

int CVTransactionSetModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mTransactionSetArray.size());
}

QVariant CVTransactionSetModel::cell(int row, int column, int role) const {
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    if (column == Name)
        return set(row)->transactionSetName();
    return role == Qt::DisplayRole ? QVariant(QBLocaleInForce().toString(count(row))) : QVariant(count(row));
}
