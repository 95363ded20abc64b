#include "workspace/budgettabs/CVReportModel.h"

#include "base/QBMoney.h"
#include "budget/CVLabelOfFrequency.h"
#include "contents/CVReportContents.h"
#include "model/CVCategory.h"
#include "model/CVIsReadOnly.h"
#include "widgets/CVAttentionColourOn.h"
#include "widgets/fields/CVCellAlignment.h"
#include "workspace/budgettabs/CVToolTipOfReportRow.h"

#include <QFont>
#include <QGuiApplication>

namespace {

using Kind = CVReportColumnKind;

constexpr int kDecimals = 2;

Qt::Alignment alignment(Kind kind) {
    const bool isText = kind == Kind::Text || kind == Kind::Frequency;
    return isText ? kCVTextAlignment : kCVNumberAlignment;
}

QString percentText(double percent) {
    const QLocale locale = QBLocaleInForce();
    return locale.toString(RoundDoubleToTwoPlaces(percent), 'f', kDecimals) + locale.percent();
}

} // namespace

CVReportModel::CVReportModel(const CVReportContents& contents, CVReportTable table)
    : mContents(contents)
    , mColumns(CVColumnsOfReport(table)) {}

const CVReportColumn& CVReportModel::column(int column) const {
    return mColumns[static_cast<std::size_t>(column)];
}

void CVReportModel::reload() {
    const Replacement replacement(*this, mRows == mContents.rows() ? Shape::Same : Shape::Another);
    mRows = mContents.rows();
    mMoneyFormatter = QBMoneyFormatter();
}

const CVCategory* CVReportModel::categoryOfRow(int row) const {
    return mRows[static_cast<std::size_t>(row)].get();
}

int CVReportModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

int CVReportModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mColumns.size());
}

Qt::ItemFlags CVReportModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = CVCategoryTableModel::flags(index);
    if (!index.isValid() || CVIsReadOnly(*categoryOfRow(index.row())))
        return flags;
    const Kind kind = column(index.column()).kind;
    return kind == Kind::Frequency || kind == Kind::Target ? flags | Qt::ItemIsEditable : flags;
}

QVariant CVReportModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::EditRole:
        return value(index);
    case Qt::TextAlignmentRole:
        return QVariant(alignment(column(index.column()).kind));
    case Qt::ForegroundRole:
    case Qt::FontRole:
        return warns(index) ? emphasis(role) : QVariant();
    case Qt::ToolTipRole:
        return index.column() == 0 ? QVariant() : toolTip(index);
    default:
        return {};
    }
}

bool CVReportModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || !checkIndex(index) || !value.isValid() ||
        !flags(index).testFlag(Qt::ItemIsEditable) || value == this->value(index))
        return false;
    switch (column(index.column()).kind) {
    case Kind::Frequency:
        emit frequencyPicked(index.row(), value.toInt());
        return true;
    case Kind::Target:
        emit targetEntered(index.row(), value.toDouble());
        return true;
    default:
        return false;
    }
}

QVariant CVReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return CVCategoryTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return CVTitleOfReportColumn(column(section));
    if (role == Qt::TextAlignmentRole)
        return QVariant(alignment(column(section).kind));
    return {};
}

QVariant CVReportModel::value(const QModelIndex& index) const {
    return column(index.column()).value(mContents.figures(), *categoryOfRow(index.row()));
}

QString CVReportModel::text(const QModelIndex& index) const {
    const QVariant value = this->value(index);
    switch (column(index.column()).kind) {
    case Kind::Text:
        return value.toString();
    case Kind::Count:
        return QBLocaleInForce().toString(value.toULongLong());
    case Kind::Percent:
        return percentText(value.toDouble());
    case Kind::Frequency:
        return CVLabelOfFrequency(value.toLongLong());
    case Kind::Target:
        return mMoneyFormatter.string(RoundDoubleToTwoPlaces(value.toDouble()));
    case Kind::Money:
    case Kind::Difference:
        break;
    }
    return mMoneyFormatter.string(value.toDouble());
}

bool CVReportModel::warns(const QModelIndex& index) const {
    return column(index.column()).kind == Kind::Difference && targetIsBelowMonthlyAverage(*categoryOfRow(index.row()));
}

QVariant CVReportModel::emphasis(int role) {
    if (role == Qt::ForegroundRole)
        return QBrush(CVAttentionColourOn(QGuiApplication::palette(), QPalette::Base));
    QFont font;
    font.setBold(true);
    return font;
}

QString CVReportModel::toolTip(const QModelIndex& index) const {
    const CVCategory& category = *categoryOfRow(index.row());
    QString sums = CVToolTipOfReportRow(mContents, category);
    if (!warns(index))
        return sums;
    const QString warning =
        tr("The target is too low: %1 a month were spent on average.").arg(mMoneyFormatter.string(category.monthly()));
    return sums + QStringLiteral("<p>%1</p>").arg(warning.toHtmlEscaped());
}
