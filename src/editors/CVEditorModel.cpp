#include "editors/CVEditorModel.h"

CVEditorModel::CVEditorModel(std::span<const CVEditorColumn> columns, QObject* parent)
    : QAbstractTableModel(parent)
    , mColumns(columns) {}

QLatin1StringView CVEditorModel::identifier(int column) const {
    return mColumns[static_cast<std::size_t>(column)].identifier;
}

int CVEditorModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mColumns.size());
}

QVariant CVEditorModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index))
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant(mColumns[static_cast<std::size_t>(index.column())].alignment);
    return cell(index.row(), index.column(), role);
}

QVariant CVEditorModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    const CVEditorColumn& column = mColumns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return tr(column.title);
    return role == Qt::TextAlignmentRole ? QVariant(column.alignment) : QVariant();
}

Qt::ItemFlags CVEditorModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() ? flags | mColumns[static_cast<std::size_t>(index.column())].abilities : flags;
}

bool CVEditorModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || !checkIndex(index))
        return false;
    const Qt::ItemFlags can = flags(index);
    if (role == Qt::EditRole && can.testFlag(Qt::ItemIsEditable))
        emit edited(index.row(), value.toString());
    else if (role == Qt::CheckStateRole && can.testFlag(Qt::ItemIsUserCheckable))
        emit toggled(index.row());
    else
        return false;
    return true;
}
