#include "editors/CVCategoryEditModel.h"

#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "widgets/fields/CVCellAlignment.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr QChar kCheckMark(0x2714);

constexpr std::array<CVEditorColumn, CVCategoryEditModel::ColumnCount> kCategoryColumns{
    {{QLatin1StringView("category"), QT_TRANSLATE_NOOP("CVEditorModel", "Category"), kCVTextAlignment,
      Qt::ItemIsEditable},
     {QLatin1StringView("inuse"), QT_TRANSLATE_NOOP("CVEditorModel", "In Use"), Qt::AlignCenter},
     {QLatin1StringView("delete"), QT_TRANSLATE_NOOP("CVEditorModel", "Delete"), Qt::AlignCenter}}};

} // namespace

CVCategoryEditModel::CVCategoryEditModel(const CVDocument& document, QObject* parent)
    : CVEditorModel(kCategoryColumns, parent)
    , mDocument(document) {
    reload();
}

void CVCategoryEditModel::reload() {
    beginResetModel();
    mCategoryArray = mDocument.categories();
    mUsed.clear();
    for (const auto& transaction : mDocument.transactions())
        mUsed.insert(transaction->categoryID());
    endResetModel();
}

void CVCategoryEditModel::reorder() {
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const CVCategories rowsBefore = std::exchange(mCategoryArray, mDocument.categories());
    QModelIndexList after;
    for (const QModelIndex& index : before) {
        const int row = rowOf(rowsBefore[static_cast<std::size_t>(index.row())].get());
        after.append(row < 0 ? QModelIndex() : this->index(row, index.column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

const std::shared_ptr<CVCategory>& CVCategoryEditModel::category(int row) const {
    return mCategoryArray.at(static_cast<std::size_t>(row));
}

int CVCategoryEditModel::rowOf(const CVCategory* category) const {
    const auto found = std::find_if(mCategoryArray.begin(), mCategoryArray.end(),
                                    [category](const auto& row) { return row.get() == category; });
    return found == mCategoryArray.end() ? -1 : static_cast<int>(found - mCategoryArray.begin());
}

bool CVCategoryEditModel::isInUse(int row) const {
    return mUsed.contains(category(row)->uniqueID());
}

int CVCategoryEditModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mCategoryArray.size());
}

QVariant CVCategoryEditModel::cell(int row, int column, int role) const {
    switch (column) {
    case Category:
        return role == Qt::DisplayRole || role == Qt::EditRole ? category(row)->categoryName() : QVariant();
    case InUse:
        if (role == Qt::AccessibleTextRole)
            return isInUse(row) ? tr("Yes") : tr("No");
        return role == Qt::DisplayRole && isInUse(row) ? QVariant(QString(kCheckMark)) : QVariant();
    default:
        // The box of the Delete column is never ticked.
        if (role == Qt::ToolTipRole)
            return tr("To delete this category, select it and press Delete.");
        return role == Qt::CheckStateRole ? QVariant(Qt::Unchecked) : QVariant();
    }
}
