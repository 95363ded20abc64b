#include "workspace/budgettabs/CVGridModel.h"

#include "model/CVCategory.h"
#include "widgets/CVAttentionColourOn.h"
#include "widgets/fields/CVCellAlignment.h"
#include "workspace/budgettabs/CVToolTipOfGridCell.h"

#include <QFont>
#include <QGuiApplication>

CVGridModel::CVGridModel(const CVGridContents& contents, Part part) : mContents(contents), mPart(part) {}

void CVGridModel::reload() {
    std::vector<CVDisplayPeriods::Header> headers;
    if (hasPeriods()) {
        for (const int number : mContents.columns())
            headers.push_back(mContents.periods().header(number));
    }
    const bool isSame = mRows == mContents.rows() && mHeaders.size() == headers.size();
    const Replacement replacement(*this, isSame ? Shape::Same : Shape::Another);
    mRows = mContents.rows();
    mHeaders = std::move(headers);
    mMoneyFormatter = QBMoneyFormatter();
}

const CVCategory* CVGridModel::categoryOfRow(int row) const {
    return mPart == Part::PeriodTotals ? nullptr : mRows[static_cast<std::size_t>(row)].get();
}

int CVGridModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    return mPart == Part::PeriodTotals && !mRows.empty() ? 1 : static_cast<int>(mRows.size());
}

int CVGridModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    return hasPeriods() ? static_cast<int>(mHeaders.size()) : 1;
}

QVariant CVGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::EditRole:
        if (const auto number = amount(index))
            return *number;
        return {};
    case Qt::TextAlignmentRole:
        return QVariant(mPart == Part::Categories ? kCVTextAlignment : kCVNumberAlignment);
    case Qt::ToolTipRole:
        return mPart == Part::Categories ? QVariant() : toolTip(index);
    default:
        return {};
    }
}

QVariant CVGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return CVCategoryTableModel::headerData(section, orientation, role);
    if (hasPeriods())
        return periodHeader(mHeaders[static_cast<std::size_t>(section)], role);
    if (role == Qt::DisplayRole)
        return mPart == Part::Categories ? tr("Category") : tr("Total");
    if (role == Qt::TextAlignmentRole)
        return QVariant(mPart == Part::Categories ? kCVTextAlignment : kCVNumberAlignment);
    return {};
}

std::optional<double> CVGridModel::amount(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    switch (mPart) {
    case Part::Periods:
        return mContents.grid().cell(row, column);
    case Part::PeriodTotals:
        return mContents.grid().columnTotal(column);
    case Part::CategoryTotals:
        return mContents.grid().rowTotal(row);
    case Part::Categories:
        break;
    }
    return std::nullopt;
}

QVariant CVGridModel::text(const QModelIndex& index) const {
    if (mPart == Part::Categories)
        return mRows[static_cast<std::size_t>(index.row())]->categoryName();
    const auto number = amount(index);
    return number ? mMoneyFormatter.string(*number) : QVariant();
}

QString CVGridModel::toolTip(const QModelIndex& index) const {
    const double spent = amount(index).value_or(0);
    const CVCategory* const category = categoryOfRow(index.row());
    return hasPeriods() ? CVToolTipOfGridCell(mContents, category, index.column(), spent)
                        : CVToolTipOfGridCell(mContents, category, std::nullopt, spent);
}

QVariant CVGridModel::periodHeader(const CVDisplayPeriods::Header& header, int role) const {
    if (role == Qt::DisplayRole)
        return header.text;
    if (!header.holdsToday)
        return role == Qt::TextAlignmentRole ? QVariant(kCVNumberAlignment) : QVariant();
    switch (role) {
    case Qt::TextAlignmentRole:
        return QVariant(Qt::Alignment(Qt::AlignCenter));
    case Qt::ForegroundRole:
        return QBrush(CVAttentionColourOn(QGuiApplication::palette(), QPalette::Button));
    case Qt::FontRole: {
        QFont font = QGuiApplication::font();
        font.setBold(true);
        return font;
    }
    case Qt::ToolTipRole:
        return tr("Today");
    case Qt::AccessibleTextRole:
        return tr("%1 (today)").arg(header.text);
    default:
        return {};
    }
}
