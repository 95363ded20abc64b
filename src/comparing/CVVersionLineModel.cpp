#include "comparing/CVVersionLineModel.h"

#include "widgets/fields/CVCellAlignment.h"

#include <QFont>
#include <QGuiApplication>

#include <utility>

namespace {

constexpr char16_t kArrow = u'→';
constexpr char16_t kArrowToTheLeft = u'←';
/// Keep each of two texts together and in its own direction.
constexpr char16_t kFirstStrongIsolate = u'\u2068';
constexpr char16_t kPopIsolate = u'\u2069';

QString spoken(const CVVersionLines::Cell& cell) {
    return cell.isChanged() ? cell.before + u' ' + kArrow + u' ' + cell.after : cell.after;
}

/// The arrow points to the present text also where the window is laid out from right to left.
QString shown(const CVVersionLines::Cell& cell) {
    if (!cell.isChanged() || !QGuiApplication::isRightToLeft())
        return spoken(cell);
    return kFirstStrongIsolate + cell.before + kPopIsolate + u' ' + kArrowToTheLeft + u' ' + kFirstStrongIsolate +
           cell.after + kPopIsolate;
}

Qt::Alignment lineAlignment(int column) {
    switch (column) {
    case CVVersionLines::Date:
    case CVVersionLines::Amount:
        return kCVNumberAlignment;
    case CVVersionLines::Tax:
    case CVVersionLines::UserFlag:
        return Qt::AlignCenter;
    default:
        return kCVTextAlignment;
    }
}

} // namespace

void CVVersionLineModel::setLines(CVVersionLines lines) {
    mLines = std::move(lines);
    build();
}

void CVVersionLineModel::setSearchText(const QString& text) {
    mSearchText = text.trimmed();
    build();
}

void CVVersionLineModel::setShown(CVVersionLines::Group group, bool isShown) {
    mShown[static_cast<std::size_t>(group)] = isShown;
    build();
}

/// The selected rows stay selected.
void CVVersionLineModel::sort(int column, Qt::SortOrder order) {
    mColumn = column;
    mOrder = order;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::size_t> linesBefore;
    for (const QModelIndex& index : before)
        linesBefore.push_back(lineAt(index.row()));
    mRows = rows();
    std::vector<int> places(mLines.size());
    for (int row = 0; row < rowCount(); ++row)
        places[lineAt(row)] = row;
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(places[linesBefore[static_cast<std::size_t>(i)]], before[i].column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

void CVVersionLineModel::build() {
    beginResetModel();
    mRows = rows();
    endResetModel();
}

std::vector<std::size_t> CVVersionLineModel::rows() const {
    std::vector<std::size_t> rows;
    for (std::size_t line = 0; line < mLines.size(); ++line) {
        if (mShown[static_cast<std::size_t>(mLines.group(line))] && mLines.matches(line, mSearchText))
            rows.push_back(line);
    }
    if (mColumn >= 0)
        mLines.sort(rows, mColumn, mOrder == Qt::DescendingOrder);
    return rows;
}

int CVVersionLineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

int CVVersionLineModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : CVVersionLines::ColumnCount;
}

QVariant CVVersionLineModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shown(mLines.cell(lineAt(index.row()), index.column()));
    case Qt::AccessibleTextRole:
        return spoken(mLines.cell(lineAt(index.row()), index.column()));
    case Qt::TextAlignmentRole:
        return QVariant(lineAlignment(index.column()));
    case Qt::FontRole:
        if (mLines.cell(lineAt(index.row()), index.column()).isChanged()) {
            QFont font = QGuiApplication::font();
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant CVVersionLineModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= CVVersionLines::ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return CVVersionLines::title(section);
    return role == Qt::TextAlignmentRole ? QVariant(lineAlignment(section)) : QVariant();
}
