#include "editors/CVNameFault.h"

#include <QAbstractItemModel>

CVNameFault CVFaultOfName(const QModelIndex& cell) {
    const QString name = cell.data().toString();
    if (name.trimmed().isEmpty())
        return CVNameFault::Empty;
    for (int row = 0; row < cell.model()->rowCount(); ++row) {
        const QString other = cell.siblingAtRow(row).data().toString();
        if (row != cell.row() && other.compare(name, Qt::CaseInsensitive) == 0)
            return CVNameFault::Taken;
    }
    return CVNameFault::None;
}
