#include "importing/panel/CVImportLineModel.h"

#include "base/QBMoney.h"
#include "widgets/CVQuietTextColour.h"
#include "widgets/fields/CVCellAlignment.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace {

Qt::Alignment importAlignment(int column) {
    if (column == CVImportColumns::Checked)
        return Qt::AlignCenter;
    return column == CVImportColumns::Date || column == CVImportColumns::Amount ? kCVNumberAlignment : kCVTextAlignment;
}

} // namespace

void CVImportLineModel::take(CVImportLines lines, const CVImportTargets& targets, CVImportRows::PayeeKeys keys) {
    beginResetModel();
    mLines.take(std::move(lines), targets, std::move(keys));
    mOrder = order();
    endResetModel();
    emit changed();
}

void CVImportLineModel::clear() {
    beginResetModel();
    mLines.clear();
    mOrder.clear();
    endResetModel();
    emit changed();
}

void CVImportLineModel::takeFound(const CVImportLines& found) {
    mLines.takeFound(found);
    tellAll();
    emit changed();
}

void CVImportLineModel::setNamesOfSets(const QString& out, const QString& in) {
    mText.setNamesOfSets(out, in);
    tellAll();
}

void CVImportLineModel::setSearchText(const QString& text) {
    mSearchText = text.trimmed();
    build();
}

void CVImportLineModel::setKind(CVImportRows::Kind kind) {
    mKind = kind;
    build();
}

void CVImportLineModel::updateFormats() {
    CVImportLineText text(mLines);
    text.setNamesOfSets(mText.nameOfSet(false), mText.nameOfSet(true));
    mText = text;
    tellAll();
}

void CVImportLineModel::build() {
    beginResetModel();
    mOrder = order();
    endResetModel();
}

void CVImportLineModel::tellAll() {
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

std::vector<std::size_t> CVImportLineModel::order() const {
    std::vector<std::size_t> lines;
    for (std::size_t line = 0; line < mLines.size(); ++line) {
        if (mLines.is(line, mKind) && matches(line))
            lines.push_back(line);
    }
    if (mColumn < 0)
        return lines;
    // Made once for each line, because comparing texts without regard to case takes long.
    std::vector<SortKey> keys(mLines.size());
    for (const std::size_t line : lines)
        keys[line] = sortKey(line);
    std::stable_sort(lines.begin(), lines.end(), [this, &keys](std::size_t a, std::size_t b) {
        return mSortOrder == Qt::AscendingOrder ? keys[a] < keys[b] : keys[b] < keys[a];
    });
    return lines;
}

bool CVImportLineModel::matches(std::size_t line) const {
    const auto contains = [this, line](int column) {
        return mText.string(line, column).contains(mSearchText, Qt::CaseInsensitive);
    };
    if (mSearchText.isEmpty() || contains(ToFrom) || contains(For) || contains(Category) || contains(Note))
        return true;
    // Writing dates and amounts takes long.
    const bool hasDigit =
        std::any_of(mSearchText.cbegin(), mSearchText.cend(), [](QChar letter) { return letter.isDigit(); });
    return hasDigit && (contains(Date) || contains(Amount));
}

CVImportLineModel::SortKey CVImportLineModel::sortKey(std::size_t line) const {
    switch (mColumn) {
    case Checked:
        return {mLines.willBeRecorded(line) ? 1 : 0};
    case Date: {
        const auto& day = mLines.at(line).day;
        return {0, day ? QString::fromLatin1(day->corvellaXMLRepresentation()) : QString()};
    }
    case Amount:
        return {mLines.at(line).hundredths};
    default:
        return {0, mText.string(line, mColumn).toCaseFolded()};
    }
}

/// The selected rows stay selected.
void CVImportLineModel::sort(int column, Qt::SortOrder sortOrder) {
    mColumn = column;
    mSortOrder = sortOrder;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::size_t> linesBefore;
    for (const QModelIndex& index : before)
        linesBefore.push_back(lineAt(index.row()));
    mOrder = order();
    std::vector<int> places(mLines.size(), -1);
    for (int row = 0; row < rowCount(); ++row)
        places[lineAt(row)] = row;
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i) {
        const int row = places[linesBefore[static_cast<std::size_t>(i)]];
        after.append(row < 0 ? QModelIndex() : index(row, before[i].column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

int CVImportLineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mOrder.size());
}

int CVImportLineModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CVImportLineModel::value(std::size_t line, int column) const {
    switch (column) {
    case Date:
        return QVariant::fromValue(mLines.at(line).day);
    case Amount:
        return CVImportLineText::amountOf(mLines.at(line).hundredths);
    case Into:
        return mLines.at(line).isIncome;
    default:
        return mText.string(line, column);
    }
}

/// A text that contains markup is shown as it is.
QVariant CVImportLineModel::toolTip(std::size_t line, int column) const {
    const QString text = mText.toolTip(line, column);
    return text.isEmpty() ? QVariant() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

/// What needs the user stands out without colour.
QVariant CVImportLineModel::font(std::size_t line, int column) const {
    const bool isUnsettled = column == Note && mLines.is(line, CVImportRows::Kind::WithoutCategory);
    const bool isGuess = column == Category && mLines.is(line, CVImportRows::Kind::Guessed);
    if (!isUnsettled && !isGuess)
        return {};
    QFont font = QGuiApplication::font();
    font.setBold(isUnsettled);
    font.setItalic(isGuess);
    return font;
}

QVariant CVImportLineModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index))
        return {};
    const std::size_t line = lineAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == Checked ? QVariant() : mText.string(line, index.column());
    case Qt::EditRole:
        return value(line, index.column());
    case Qt::CheckStateRole:
        if (index.column() != Checked)
            return {};
        return mLines.willBeRecorded(line) ? Qt::Checked : Qt::Unchecked;
    case Qt::AccessibleTextRole:
        return mText.spoken(line, index.column());
    case Qt::ToolTipRole:
        return toolTip(line, index.column());
    case Qt::FontRole:
        return font(line, index.column());
    case Qt::ForegroundRole:
        if (mLines.willBeRecorded(line) || index.column() == Note)
            return {};
        return CVQuietTextColour(QGuiApplication::palette());
    case Qt::TextAlignmentRole:
        return QVariant(importAlignment(index.column()));
    default:
        return {};
    }
}

QVariant CVImportLineModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (role) {
    case Qt::DisplayRole:
        return CVImportLineText::title(section);
    case Qt::AccessibleTextRole:
        return section == Checked ? tr("To import") : CVImportLineText::title(section);
    case Qt::TextAlignmentRole:
        return QVariant(importAlignment(section));
    default:
        return {};
    }
}

Qt::ItemFlags CVImportLineModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    if (!index.isValid() || !mLines.isReadable(lineAt(index.row())))
        return usual;
    switch (index.column()) {
    case Checked:
        return mLines.canBeRecorded(lineAt(index.row())) ? usual | Qt::ItemIsUserCheckable : usual;
    case Note:
        return usual;
    case Amount:
        // The parts of a line keep its amount together.
        return mLines.isPart(lineAt(index.row())) ? usual : usual | Qt::ItemIsEditable;
    default:
        return usual | Qt::ItemIsEditable;
    }
}

bool CVImportLineModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || !checkIndex(index))
        return false;
    const std::size_t line = lineAt(index.row());
    const bool isBox = index.column() == Checked;
    if (role != (isBox ? Qt::CheckStateRole : Qt::EditRole) ||
        !flags(index).testFlag(isBox ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable))
        return false;
    if (!change(line, index.column(), value))
        return false;
    emit dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(ColumnCount - 1));
    emit changed();
    if (index.column() == Category)
        emit categoryGiven(line);
    else if (index.column() == Date || index.column() == Amount || index.column() == Into)
        emit placesChanged();
    return true;
}

bool CVImportLineModel::change(std::size_t line, int column, const QVariant& value) {
    switch (column) {
    case Checked:
        mLines.setChecked(line, !mLines.willBeRecorded(line));
        return true;
    case Date: {
        const auto day = value.value<std::optional<QBDate>>();
        if (day)
            mLines.setDay(line, *day);
        return day.has_value();
    }
    case Amount: {
        const double amount = RoundDoubleToTwoPlaces(value.toDouble());
        // A larger one has no hundredths.
        const bool isUsual = std::abs(amount) < kQBNoCentsFrom;
        if (isUsual)
            mLines.setHundredths(line, CVImportLineText::hundredthsOf(amount));
        return isUsual;
    }
    case ToFrom:
        mLines.setPayee(line, value.toString());
        return true;
    case For:
        mLines.setFor(line, value.toString());
        return true;
    case Category:
        mLines.setCategory(line, value.toString());
        return true;
    case Into:
        mLines.setIncome(line, value.toBool());
        return true;
    default:
        return false;
    }
}

void CVImportLineModel::setChecked(const std::vector<std::size_t>& lines, bool isChecked) {
    for (const std::size_t line : lines) {
        if (mLines.canBeRecorded(line))
            mLines.setChecked(line, isChecked);
    }
    tellAll();
    emit changed();
}

void CVImportLineModel::setIncome(const std::vector<std::size_t>& lines, bool isIncome) {
    for (const std::size_t line : lines) {
        if (mLines.isReadable(line))
            mLines.setIncome(line, isIncome);
    }
    tellAll();
    emit changed();
    emit placesChanged();
}

void CVImportLineModel::giveCategory(const std::vector<std::size_t>& lines, const QString& category) {
    mLines.giveCategory(lines, category);
    tellAll();
    emit changed();
}

void CVImportLineModel::giveToAllWithout(const QString& category) {
    mLines.giveToAllWithout(category);
    tellAll();
    emit changed();
}

void CVImportLineModel::split(std::size_t line, const std::vector<CVImportRows::Part>& parts) {
    beginResetModel();
    mLines.split(line, parts);
    mOrder = order();
    endResetModel();
    emit changed();
    emit placesChanged();
}

void CVImportLineModel::join(std::size_t line) {
    beginResetModel();
    mLines.join(line);
    mOrder = order();
    endResetModel();
    emit changed();
    emit placesChanged();
}
