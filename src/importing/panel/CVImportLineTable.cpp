#include "importing/panel/CVImportLineTable.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "importing/panel/CVImportLineDelegate.h"
#include "importing/panel/CVImportLineModel.h"
#include "widgets/CVIsReturnKey.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace {

/// The usual widths of the columns, in widths of a digit. Boxes, dates and amounts always need theirs; the others share
/// the rest in these proportions.
constexpr std::array kImportWidths{4, 11, 13, 26, 18, 18, 13, 26};
constexpr int kFixedImportColumns = CVImportColumns::ToFrom;
/// The minimum width of any column but that of the boxes, in letters.
constexpr int kShortestImportColumn = 4;

} // namespace

CVImportLineTable::CVImportLineTable(CVImportLineModel& model, QWidget* parent)
    : CVTableView(parent)
    , mModel(model)
    , mDelegate(new CVImportLineDelegate(this)) {
    // A model that is destroyed before the table would end the selection of a table that is being destroyed.
    model.setParent(this);
    setModel(&model);
    setItemDelegate(mDelegate);
    setObjectName(QStringLiteral("mImportTable"));
    setAccessibleName(tr("Lines of the Statement"));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setUpColumns();
}

void CVImportLineTable::setUpColumns() {
    QHeaderView* const header = horizontalHeader();
    header->setMinimumSectionSize(kShortestImportColumn * fontMetrics().averageCharWidth());
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    // A third click leads back to the order of the statement.
    header->setSortIndicatorClearable(true);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    connect(header, &QHeaderView::sortIndicatorChanged, &mModel, &CVImportLineModel::sort);
    connect(header, &QHeaderView::sectionResized, this, [this] { mHasOwnWidths = mHasOwnWidths || !mIsFitting; });
    fitColumns();
}

/// Until the user changes a width, all columns are seen.
void CVImportLineTable::fitColumns() {
    if (mHasOwnWidths)
        return;
    const QScopedValueRollback fitting(mIsFitting, true);
    const int digit = fontMetrics().horizontalAdvance('0');
    int rest = viewport()->width();
    int shares = 0;
    for (std::size_t column = 0; column < kImportWidths.size(); ++column) {
        const bool isFixed = column < kFixedImportColumns;
        rest -= isFixed ? kImportWidths[column] * digit : 0;
        shares += isFixed ? 0 : kImportWidths[column];
    }
    for (std::size_t column = 0; column < kImportWidths.size(); ++column)
        setColumnWidth(static_cast<int>(column), column < kFixedImportColumns ? kImportWidths[column] * digit
                                                                              : rest * kImportWidths[column] / shares);
}

void CVImportLineTable::resizeEvent(QResizeEvent* event) {
    CVTableView::resizeEvent(event);
    fitColumns();
}

void CVImportLineTable::setItems(const QStringList& payees, const QStringList& categories) {
    mDelegate->setPayees(payees);
    mDelegate->setCategories(categories);
}

std::vector<std::size_t> CVImportLineTable::selectedLines() const {
    std::vector<std::size_t> lines;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        lines.push_back(mModel.lineAt(index.row()));
    std::sort(lines.begin(), lines.end());
    return lines;
}

void CVImportLineTable::showLine(std::size_t line) {
    for (int row = 0; row < mModel.rowCount(); ++row) {
        if (mModel.lineAt(row) == line)
            return setCurrentIndex(mModel.index(row, CVImportColumns::Category));
    }
}

void CVImportLineTable::restoreColumns(const QBUserDefaults& defaults) {
    mHasOwnWidths = horizontalHeader()->restoreState(defaults.dataForKey(CVDefaultsKeys::kImportColumns));
    // The restored state may forbid them, and the order of another statement means nothing here.
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
}

void CVImportLineTable::keepColumns(QBUserDefaults& defaults) const {
    if (mHasOwnWidths)
        defaults.setData(CVDefaultsKeys::kImportColumns, horizontalHeader()->saveState());
}

void CVImportLineTable::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier) && state() != EditingState;
    const QModelIndex category = currentIndex().siblingAtColumn(CVImportColumns::Category);
    if (isPlain && event->key() == Qt::Key_Space)
        toggleSelected();
    else if (isPlain && CVIsReturnKey(event->key()) && category.flags().testFlag(Qt::ItemIsEditable)) {
        selectionModel()->setCurrentIndex(category, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        edit(category);
    } else
        CVTableView::keyPressEvent(event);
}

/// Checks all selected lines, or unchecks them when all are checked.
void CVImportLineTable::toggleSelected() {
    const std::vector<std::size_t> lines = selectedLines();
    const bool areAllChecked = std::all_of(lines.begin(), lines.end(), [this](std::size_t line) {
        return mModel.lines().willBeRecorded(line) || !mModel.lines().canBeRecorded(line);
    });
    if (!lines.empty())
        mModel.setChecked(lines, !areAllChecked);
}

void CVImportLineTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    CVTableView::selectionChanged(selected, deselected);
    emit selectedLinesChanged();
}
