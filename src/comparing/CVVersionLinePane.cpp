#include "comparing/CVVersionLinePane.h"

#include "base/QBUserDefaults.h"
#include "comparing/CVVersionLineModel.h"
#include "differences/CVBudgetDifferences.h"
#include "format/QBLocale.h"
#include "widgets/tables/CVCellDelegate.h"
#include "widgets/tables/CVTableView.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QShortcut>

#include <algorithm>

namespace {

/// The minimum widths of any column and, as long as there is room, of a column of texts, in letters.
constexpr int kShortestLineColumn = 4;
constexpr int kShortestTextColumn = 10;
/// The room around the title of a column, in letters.
constexpr int kTitlePadding = 3;
/// The rows that are measured beside the visible ones; more would take time.
constexpr int kMeasuredRows = 300;
constexpr int kSearchWidthInLetters = 30;

bool isTextColumn(int column) {
    return column == CVVersionLines::ToFrom || column == CVVersionLines::For || column == CVVersionLines::Category ||
           column == CVVersionLines::Set;
}

} // namespace

CVVersionLinePane::CVVersionLinePane(CVComparedWith with, const char* columnsKey, QWidget* parent)
    : QWidget(parent)
    , mWith(with)
    , mColumnsKey(columnsKey)
    , mModel(new CVVersionLineModel(this))
    , mTable(new CVTableView(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const row = new QHBoxLayout;
    addGroups(*row);
    addSearch(*row);
    layout->addLayout(row);
    addTable();
    layout->addWidget(mTable, 1);
    // In the order in which they stand.
    setTabOrder(mSearch, mTable);
    connect(mModel, &QAbstractItemModel::modelReset, this, [this] {
        showMessage();
        emit selectionChanged();
    });
    showCounts();
}

void CVVersionLinePane::addGroups(QHBoxLayout& row) {
    constexpr std::array<const char*, CVVersionLines::kGroups> kNames{"mRemovedBox", "mAddedBox", "mChangedBox",
                                                                      "mBothSidesBox"};
    auto* const label = new QLabel(mWith == CVComparedWith::Version ? tr("Since then:") : tr("There:"), this);
    row.addWidget(label);
    for (std::size_t i = 0; i < mGroups.size(); ++i) {
        mGroups[i] = new QCheckBox(this);
        mGroups[i]->setObjectName(QLatin1String(kNames[i]));
        mGroups[i]->setChecked(true);
        row.addWidget(mGroups[i]);
        connect(mGroups[i], &QCheckBox::toggled, this,
                [this, i](bool isShown) { mModel->setShown(static_cast<CVVersionLines::Group>(i), isShown); });
    }
    row.addStretch();
    // All lines of an import are of one group.
    const bool hasGroups = mWith != CVComparedWith::Import;
    label->setVisible(hasGroups);
    for (QCheckBox* const group : mGroups)
        group->setVisible(hasGroups);
}

void CVVersionLinePane::addSearch(QHBoxLayout& row) {
    mSearch = new QLineEdit(this);
    mSearch->setObjectName(QStringLiteral("mSearchField"));
    mSearch->setAccessibleName(tr("Search These Lines"));
    mSearch->setPlaceholderText(tr("Search these lines"));
    mSearch->setClearButtonEnabled(true);
    mSearch->setMaximumWidth(kSearchWidthInLetters * fontMetrics().averageCharWidth());
    row.addWidget(mSearch, 1);
    connect(mSearch, &QLineEdit::textChanged, mModel, &CVVersionLineModel::setSearchText);
    auto* const find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WindowShortcut);
    connect(find, &QShortcut::activated, mSearch, [this] {
        mSearch->setFocus(Qt::ShortcutFocusReason);
        mSearch->selectAll();
    });
}

void CVVersionLinePane::addTable() {
    mTable->setObjectName(QStringLiteral("mLineTable"));
    mTable->setAccessibleName(mWith == CVComparedWith::Version ? tr("What Was Removed, Added and Changed")
                              : mWith == CVComparedWith::Other ? tr("What Was Removed, Added and Changed There")
                                                               : tr("What Your Budget Does Not Have Yet"));
    mTable->setModel(mModel);
    mTable->setItemDelegate(new CVCellDelegate(mTable));
    mTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    mTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QHeaderView* const header = mTable->horizontalHeader();
    header->setMinimumSectionSize(kShortestLineColumn * fontMetrics().averageCharWidth());
    header->setResizeContentsPrecision(kMeasuredRows);
    connect(header, &QHeaderView::sectionResized, this, &CVVersionLinePane::keepWidthsOfUser);
    mTable->viewport()->installEventFilter(this);
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    // A third click leads back to the order of the differences.
    header->setSortIndicatorClearable(true);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    connect(header, &QHeaderView::sortIndicatorChanged, mModel, &CVVersionLineModel::sort);
    connect(mTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CVVersionLinePane::selectionChanged);
}

void CVVersionLinePane::show(std::shared_ptr<const CVBudgetDifferences> differences,
                             CVVersionLines::ChangedTwice changedTwice) {
    Counts selected;
    for (const QModelIndex& index : mTable->selectionModel()->selectedRows())
        ++selected[textOfRow(index.row())];
    mDifferences = std::move(differences);
    mChangedTwice = std::move(changedTwice);
    mModel->setLines(CVVersionLines(mDifferences, mWith, mChangedTwice));
    showCounts();
    measureColumns();
    fitColumns();
    select(std::move(selected));
}

/// The records of another reading are other objects, so a line is known by what it says.
QString CVVersionLinePane::textOfRow(int row) const {
    QStringList cells;
    for (int column = 0; column < CVVersionLines::ColumnCount; ++column)
        cells.append(mModel->index(row, column).data().toString());
    return cells.join(QChar(u'\n'));
}

/// Selects as many rows of each text as there were, as one range where they are neighbours.
void CVVersionLinePane::select(Counts rows) {
    if (rows.isEmpty())
        return;
    QItemSelection selection;
    int first = 0;
    for (int row = 0; row <= mModel->rowCount(); ++row) {
        if (row < mModel->rowCount() && rows.value(textOfRow(row)) > 0) {
            --rows[textOfRow(row)];
            continue;
        }
        if (first < row)
            selection.select(mModel->index(first, 0), mModel->index(row - 1, 0));
        first = row + 1;
    }
    if (!selection.isEmpty())
        mTable->selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void CVVersionLinePane::updateFormats() {
    show(mDifferences, mChangedTwice);
}

void CVVersionLinePane::showCounts() {
    using Group = CVVersionLines::Group;
    const auto count = [this](Group group) {
        return QBLocaleInForce().toString(static_cast<qulonglong>(mModel->lines().count(group)));
    };
    const std::array texts{tr("&Removed (%1)").arg(count(Group::Removed)), tr("&Added (%1)").arg(count(Group::Added)),
                           tr("Chan&ged (%1)").arg(count(Group::Changed)),
                           tr("On &both sides (%1)").arg(count(Group::ChangedOnBothSides))};
    for (std::size_t i = 0; i < mGroups.size(); ++i)
        mGroups[i]->setText(texts[i]);
    mGroups.back()->setVisible(mModel->lines().count(Group::ChangedOnBothSides) > 0);
}

/// The stretching column marks the widths that the user has given, also in the settings.
bool CVVersionLinePane::isFitted() const {
    return mTable->horizontalHeader()->sectionResizeMode(CVVersionLines::For) != QHeaderView::Stretch;
}

void CVVersionLinePane::measureColumns() {
    mNeeds.clear();
    const QAbstractItemView& view = *mTable;
    for (int column = 0; isFitted() && column < CVVersionLines::ColumnCount; ++column) {
        // The header's own hint leaves room for an arrow in every column.
        const int title = mTable->horizontalHeader()->fontMetrics().horizontalAdvance(CVVersionLines::title(column)) +
                          kTitlePadding * fontMetrics().averageCharWidth();
        mNeeds.push_back({std::max(view.sizeHintForColumn(column), title), isTextColumn(column)});
    }
}

void CVVersionLinePane::fitColumns() {
    if (mNeeds.empty() || !isFitted())
        return;
    const QScopedValueRollback fitting(mIsFitting, true);
    const std::vector<int> widths =
        CVSharedWidths(mNeeds, mTable->viewport()->width(), kShortestTextColumn * fontMetrics().averageCharWidth());
    for (int column = 0; column < CVVersionLines::ColumnCount; ++column)
        mTable->setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
}

void CVVersionLinePane::keepWidthsOfUser() {
    if (!mIsFitting && isFitted())
        mTable->horizontalHeader()->setSectionResizeMode(CVVersionLines::For, QHeaderView::Stretch);
}

bool CVVersionLinePane::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

void CVVersionLinePane::setMessage(const QString& message) {
    mMessage = message;
    showMessage();
}

void CVVersionLinePane::showMessage() {
    if (mModel->rowCount() > 0)
        mTable->setMessage({});
    else
        mTable->setMessage(mModel->lines().size() > 0 ? tr("No line matches.") : mMessage);
}

std::vector<std::size_t> CVVersionLinePane::takeableLines() const {
    std::vector<std::size_t> lines;
    for (const QModelIndex& index : mTable->selectionModel()->selectedRows()) {
        const std::size_t line = mModel->lineAt(index.row());
        if (mWith != CVComparedWith::Version || mModel->lines().at(line).sign != CVVersionSign::Added)
            lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

bool CVVersionLinePane::hasTakeable() const {
    const CVVersionLines& lines = mModel->lines();
    return lines.size() > (mWith != CVComparedWith::Version ? 0 : lines.count(CVVersionLines::Group::Added));
}

bool CVVersionLinePane::hasSelection() const {
    return mTable->selectionModel()->hasSelection();
}

std::size_t CVVersionLinePane::countAll() const {
    return mModel->lines().size();
}

std::size_t CVVersionLinePane::countTakeable() const {
    return takeableLines().size();
}

CVBudgetDifferences CVVersionLinePane::takeable() const {
    return mModel->lines().only(takeableLines());
}

void CVVersionLinePane::focusTable() {
    mTable->setFocus();
}

bool CVVersionLinePane::clearFocusedSearch() {
    if (!mSearch->hasFocus() || mSearch->text().isEmpty())
        return false;
    mSearch->clear();
    return true;
}

void CVVersionLinePane::restoreColumns(const QBUserDefaults& defaults) {
    const QScopedValueRollback fitting(mIsFitting, true);
    QHeaderView& header = *mTable->horizontalHeader();
    header.restoreState(defaults.dataForKey(mColumnsKey));
    // The restored state may forbid them.
    header.setSectionsMovable(true);
    header.setSectionsClickable(true);
    mModel->sort(header.sortIndicatorSection(), header.sortIndicatorOrder());
}

void CVVersionLinePane::keepColumns(QBUserDefaults& defaults) const {
    defaults.setData(mColumnsKey, mTable->horizontalHeader()->saveState());
}
