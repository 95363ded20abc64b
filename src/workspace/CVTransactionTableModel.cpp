#include "workspace/CVTransactionTableModel.h"

#include "model/CVTransaction.h"
#include "shared/widgets/CVGlyph.h"
#include "workspace/CVTransactionList.h"

#include <QFont>
#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace {

struct ColumnInfo {
    QLatin1StringView identifier;
    const char* title = nullptr;
    Qt::Alignment alignment;
};

constexpr Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr Qt::Alignment kRight = Qt::AlignRight | Qt::AlignVCenter;
constexpr Qt::Alignment kCentre = Qt::AlignCenter;

constexpr std::array<ColumnInfo, CVTransactionTableModel::ColumnCount> kColumns{
    {{QLatin1StringView("date"), QT_TRANSLATE_NOOP("CVTransactionTableModel", "Date"), kRight},
     {QLatin1StringView("amount"), QT_TRANSLATE_NOOP("CVTransactionTableModel", "Amount"), kRight},
     {QLatin1StringView("tofrom"), QT_TRANSLATE_NOOP("CVTransactionTableModel", "Paid To/From"), kLeft},
     {QLatin1StringView("for"), QT_TRANSLATE_NOOP("CVTransactionTableModel", "For"), kLeft},
     {QLatin1StringView("category"), QT_TRANSLATE_NOOP("CVTransactionTableModel", "Category"), kLeft},
     {QLatin1StringView("tax"), QT_TRANSLATE_NOOP("CVTransactionTableModel", "Tax"), kCentre},
     {QLatin1StringView("userflag"), QT_TRANSLATE_NOOP("CVTransactionTableModel", "Flag"), kCentre}}};

const ColumnInfo& info(int column) {
    return kColumns[static_cast<std::size_t>(column)];
}

} // namespace

CVTransactionTableModel::CVTransactionTableModel(const CVTransactionList& list, QObject* parent)
    : QAbstractTableModel(parent)
    , mList(list) {}

QLatin1StringView CVTransactionTableModel::identifier(int column) {
    return info(column).identifier;
}

QString CVTransactionTableModel::title(int column) {
    return tr(info(column).title);
}

int CVTransactionTableModel::columnOfIdentifier(const QString& identifier) {
    for (int column = 0; column < ColumnCount; ++column) {
        if (identifier == info(column).identifier)
            return column;
    }
    return -1;
}

void CVTransactionTableModel::reload() {
    beginResetModel();
    mRows = mList.displayTransactions();
    endResetModel();
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
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CVTransactionTableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CVTransaction& transaction = *mRows[static_cast<std::size_t>(index.row())];
    const bool isFlagColumn = index.column() == Tax || index.column() == UserFlag;
    switch (role) {
    case Qt::DisplayRole:
        return isFlagColumn ? QVariant() : text(transaction, index.column());
    case Qt::EditRole:
        return value(transaction, index.column());
    case Qt::DecorationRole:
        if (index.column() == Tax && transaction.taxFlag())
            return CVGlyph::icon(CVGlyph::Shape::SmallTax);
        if (index.column() == UserFlag && transaction.userFlag())
            return CVGlyph::icon(CVGlyph::Shape::Flag);
        return {};
    case Qt::AccessibleTextRole:
        return text(transaction, index.column());
    case Qt::TextAlignmentRole:
        return QVariant(info(index.column()).alignment);
    default:
        return {};
    }
}

QVariant CVTransactionTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return title(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant(info(section).alignment);
    if (role == Qt::FontRole && identifier(section) == mList.sortContext().key) {
        QFont font = QGuiApplication::font();
        font.setBold(true);
        return font;
    }
    return {};
}

QString CVTransactionTableModel::text(const CVTransaction& transaction, int column) const {
    switch (column) {
    case Date:
        return transaction.effectiveDate() ? mDateFormatter.string(*transaction.effectiveDate()) : QString();
    case Amount:
        return mMoneyFormatter.string(transaction.amount());
    case ToFrom:
        return transaction.payTo();
    case For:
        return transaction.xfor();
    case Category:
        return transaction.categoryName();
    case Tax:
        return transaction.taxFlag() ? tr("Yes") : tr("No");
    default:
        return transaction.userFlag() ? tr("Yes") : tr("No");
    }
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
    default:
        return transaction.userFlag();
    }
}
