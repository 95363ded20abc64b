#include "importing/panel/CVStatementRowModel.h"

#include <algorithm>

namespace {

constexpr std::size_t kFirstRows = 5;
/// More columns than anybody looks through.
constexpr std::size_t kMostColumns = 60;

} // namespace

QString CVStatementRowModel::meaning(CVColumnRole role) {
    switch (role) {
    case CVColumnRole::Day:
        return tr("Date");
    case CVColumnRole::OtherDay:
        return tr("Another date");
    case CVColumnRole::Amount:
        return tr("Amount");
    case CVColumnRole::MoneyIn:
        return tr("Money in");
    case CVColumnRole::MoneyOut:
        return tr("Money out");
    case CVColumnRole::Marker:
        return tr("In or out");
    case CVColumnRole::Fee:
        return tr("Fee");
    case CVColumnRole::Payee:
        return tr("Paid to/from");
    case CVColumnRole::Payer:
        return tr("Paid from");
    case CVColumnRole::Purpose:
        return tr("For");
    case CVColumnRole::Category:
        return tr("Category");
    case CVColumnRole::Balance:
        return tr("Balance");
    case CVColumnRole::Currency:
        return tr("Currency");
    case CVColumnRole::BankID:
        return tr("Number of the bank");
    case CVColumnRole::Ignored:
    case CVColumnRole::Guessed:
        break;
    }
    return tr("left out");
}

void CVStatementRowModel::setStatement(std::shared_ptr<const CVStatement> statement) {
    beginResetModel();
    mStatement = std::move(statement);
    endResetModel();
}

int CVStatementRowModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !mStatement)
        return 0;
    const std::size_t rows = mStatement->problem.isEmpty() ? mStatement->lines.size() : mStatement->unreadRows.size();
    return 1 + static_cast<int>(std::min(kFirstRows, rows));
}

int CVStatementRowModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid() || !mStatement || !mStatement->mapping.columns)
        return 0;
    return static_cast<int>(std::min(kMostColumns, mStatement->mapping.columns->size()));
}

QVariant CVStatementRowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index) || role != Qt::DisplayRole)
        return {};
    if (index.row() == kMeaningRow)
        return meaning((*mStatement->mapping.columns)[static_cast<std::size_t>(index.column())]);
    const auto row = static_cast<std::size_t>(index.row()) - 1;
    const QStringList& cells =
        mStatement->problem.isEmpty() ? mStatement->lines[row].cells : mStatement->unreadRows[row];
    return cells.value(index.column());
}

QVariant CVStatementRowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || !mStatement)
        return QAbstractTableModel::headerData(section, orientation, role);
    const QString heading = mStatement->headings.value(section).simplified();
    return heading.isEmpty() ? tr("Column %1").arg(section + 1) : heading;
}
