#include "workspace/budgettabs/CVCategoryTableModel.h"

#include "model/CVCategory.h"

CVCategoryTableModel::Replacement::Replacement(CVCategoryTableModel& model, Shape shape)
    : mModel(model)
    , mShape(shape) {
    if (mShape == Shape::Another)
        mModel.beginResetModel();
}

CVCategoryTableModel::Replacement::~Replacement() {
    if (mShape == Shape::Another) {
        mModel.endResetModel();
        return;
    }
    const int lastRow = mModel.rowCount() - 1;
    const int lastColumn = mModel.columnCount() - 1;
    if (lastColumn >= 0)
        emit mModel.headerDataChanged(Qt::Horizontal, 0, lastColumn);
    if (lastRow >= 0 && lastColumn >= 0)
        emit mModel.dataChanged(mModel.index(0, 0), mModel.index(lastRow, lastColumn));
}

QVariant CVCategoryTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isName = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
    if (orientation != Qt::Vertical || !isName || section < 0 || section >= rowCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    const CVCategory* const category = categoryOfRow(section);
    return category ? category->categoryName() : tr("Total");
}
