#include "workspace/transactions/CVTransactionTableModel.h"

#include "contents/CVTransactionList.h"
#include "model/CVIsReadOnly.h"
#include "model/CVTransaction.h"
#include "widgets/fields/CVCellAlignment.h"

#include <QFont>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace {

Qt::Alignment alignmentOf(int column) {
    switch (column) {
    case CVTransactionColumns::Date:
    case CVTransactionColumns::Amount:
        return kCVNumberAlignment;
    case CVTransactionColumns::Tax:
    case CVTransactionColumns::UserFlag:
        return Qt::AlignCenter;
    default:
        return kCVTextAlignment;
    }
}

} // namespace

CVTransactionTableModel::CVTransactionTableModel(const CVTransactionList& list, QObject* parent)
    : QAbstractTableModel(parent)
    , mList(list) {}

void CVTransactionTableModel::reload() {
    showSets(mList.shownSets() == CVShownSets::All);
    if (!mRows.empty() && mRows == mList.displayTransactions()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
        return;
    }
    beginResetModel();
    mRows = mList.displayTransactions();
    endResetModel();
}

void CVTransactionTableModel::showSets(bool show) {
    if (mShowsSets == show)
        return;
    if (show)
        beginInsertColumns({}, Set, Set);
    else
        beginRemoveColumns({}, Set, Set);
    mShowsSets = show;
    if (show)
        endInsertColumns();
    else
        endRemoveColumns();
}

void CVTransactionTableModel::reorder() {
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::unordered_map<const CVTransaction*, int> places;
    for (const QModelIndex& index : before)
        places.emplace(mRows[static_cast<std::size_t>(index.row())].get(), -1);
    const CVTransactions rowsBefore = std::exchange(mRows, mList.displayTransactions());
    for (int row = places.empty() ? 0 : rowCount(); row-- > 0;) {
        if (const auto place = places.find(mRows[static_cast<std::size_t>(row)].get()); place != places.end())
            place->second = row;
    }
    QModelIndexList after;
    for (const QModelIndex& index : before) {
        const int row = places[rowsBefore[static_cast<std::size_t>(index.row())].get()];
        after.append(row < 0 ? QModelIndex() : this->index(row, index.column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int CVTransactionTableModel::rowOf(const CVTransaction* transaction) const {
    const auto found =
        std::find_if(mRows.begin(), mRows.end(), [transaction](const auto& row) { return row.get() == transaction; });
    return found == mRows.end() ? -1 : static_cast<int>(found - mRows.begin());
}

int CVTransactionTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

int CVTransactionTableModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    return mShowsSets ? CountWithSet : ColumnCount;
}

QVariant CVTransactionTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index))
        return {};
    const CVTransaction& transaction = *mRows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return isFlag(index.column()) ? QVariant() : mText.string(transaction, index.column());
    case Qt::EditRole:
        return value(transaction, index.column());
    case Qt::DecorationRole:
        if (index.column() == Tax && transaction.taxFlag())
            return mCheck;
        return {};
    case Qt::CheckStateRole:
        if (!isFlag(index.column()))
            return {};
        return (index.column() == Tax ? transaction.taxFlag() : transaction.userFlag()) ? Qt::Checked : Qt::Unchecked;
    case Qt::AccessibleTextRole:
        return mText.string(transaction, index.column());
    case Qt::TextAlignmentRole:
        return QVariant(alignmentOf(index.column()));
    default:
        return {};
    }
}

QVariant CVTransactionTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return CVTransactionText::title(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant(alignmentOf(section));
    if (role == Qt::FontRole && CVTransactionColumns::identifier(section) == mList.sortContext().key) {
        QFont font = QGuiApplication::font();
        font.setBold(true);
        return font;
    }
    return {};
}

QModelIndexList CVTransactionTableModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                               Qt::MatchFlags flags) const {
    if (start.column() != Amount || role != Qt::DisplayRole)
        return QAbstractTableModel::match(start, role, value, hits, flags);
    QLocale locale = QBLocaleInForce();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    const QString typed = value.toString();
    for (int i = 0; i < rowCount(); ++i) {
        const int row = (start.row() + i) % rowCount();
        const double amount = std::abs(mRows[static_cast<std::size_t>(row)]->amount());
        if (locale.toString(amount, 'f', 2).startsWith(typed))
            return {index(row, Amount)};
    }
    return {};
}

Qt::ItemFlags CVTransactionTableModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    if (!index.isValid() || CVIsReadOnly(*mRows[static_cast<std::size_t>(index.row())]))
        return usual;
    if (index.column() == Set)
        return usual;
    return usual | (isFlag(index.column()) ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool CVTransactionTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || !checkIndex(index))
        return false;
    const bool isBox = isFlag(index.column());
    if (role != (isBox ? Qt::CheckStateRole : Qt::EditRole) ||
        !flags(index).testFlag(isBox ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable))
        return false;
    emit edited(index.row(), index.column(), value);
    return true;
}

void CVTransactionTableModel::updateFormatters() {
    mText = CVTransactionText();
}

QVariant CVTransactionTableModel::value(const CVTransaction& transaction, int column) {
    switch (column) {
    case Date:
        return QVariant::fromValue(transaction.effectiveDate());
    case Amount:
        return transaction.amount();
    case ToFrom:
        return transaction.payTo();
    case For:
        return transaction.xfor();
    case Category:
        return transaction.categoryName();
    case Tax:
        return transaction.taxFlag();
    case Set:
        return transaction.transactionSetName();
    default:
        return transaction.userFlag();
    }
}
