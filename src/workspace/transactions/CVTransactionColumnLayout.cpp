#include "workspace/transactions/CVTransactionColumnLayout.h"

#include "model/CVTransactionColumns.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

#include <array>

namespace {

using namespace CVTransactionColumns;

/// The usual widths of the columns, in widths of a zero.
constexpr std::array<int, CountWithSet> kWidthsInDigits{12, 14, 26, 30, 22, 7, 7, 18};
/// The minimum width of the columns with names, in widths of a zero; below that the list scrolls sideways.
constexpr int kLeastNameInDigits = 12;
/// The minimum width of any column, in letters.
constexpr int kShortestColumn = 6;

int usualWidth(int column) {
    return kWidthsInDigits[static_cast<std::size_t>(column)];
}

/// Whether a column holds names; these columns share the room that the others leave.
bool isName(int column) {
    return column == ToFrom || column == For || column == Category || column == Set;
}

} // namespace

CVTransactionColumnLayout::CVTransactionColumnLayout(QTableView& table)
    : mTable(table)
    , mHeader(*table.horizontalHeader()) {
    mHeader.setSectionResizeMode(For, QHeaderView::Stretch);
    setUsualWidths();
    connectHeader();
}

void CVTransactionColumnLayout::connectHeader() {
    connect(&mHeader, &QHeaderView::sectionMoved, this, &CVTransactionColumnLayout::changed);
    connect(&mHeader, &QHeaderView::sectionResized, this, [this](int column) {
        // The width of the column "For" follows the other columns, so a change of it is not the user's.
        if (column != For)
            changed();
    });
}

void CVTransactionColumnLayout::changed() {
    if (mIsFitting)
        return;
    mIsUsual = false;
    mIsOwn = true;
}

QByteArray CVTransactionColumnLayout::save(CVShownSets shownSets) const {
    if (shownSets != mShownSets)
        return kept(shownSets);
    return mIsOwn ? mHeader.saveState() : QByteArray();
}

void CVTransactionColumnLayout::restore(const QByteArray& ofCurrent, const QByteArray& ofAll) {
    mOfCurrent = ofCurrent;
    mOfAll = ofAll;
    show(mShownSets);
}

void CVTransactionColumnLayout::fit() {
    if (mIsUsual)
        setUsualWidths();
}

void CVTransactionColumnLayout::keep() {
    (mShownSets == CVShownSets::All ? mOfAll : mOfCurrent) = save(mShownSets);
    // The column that comes or goes is no change of the user's.
    mIsFitting = true;
}

void CVTransactionColumnLayout::show(CVShownSets shownSets) {
    mIsFitting = true;
    mShownSets = shownSets;
    mIsOwn = mHeader.restoreState(kept(shownSets));
    mIsUsual = !mIsOwn && (shownSets == CVShownSets::Current || mOfCurrent.isEmpty());
    if (mIsUsual) {
        setUsualOrder();
        setUsualWidths();
    } else if (!mIsOwn) {
        mTable.setColumnWidth(Set, usualWidth(Set) * mTable.fontMetrics().horizontalAdvance('0'));
    }
    // The restored state may forbid moving columns, so moving is allowed again.
    mHeader.setSectionsMovable(true);
    mIsFitting = false;
}

const QByteArray& CVTransactionColumnLayout::kept(CVShownSets shownSets) const {
    return shownSets == CVShownSets::All ? mOfAll : mOfCurrent;
}

void CVTransactionColumnLayout::setUsualOrder() {
    for (int column = 0; column < mHeader.count(); ++column)
        mHeader.moveSection(mHeader.visualIndex(column), column);
}

void CVTransactionColumnLayout::setUsualWidths() {
    const QScopedValueRollback fitting(mIsFitting, true);
    mHeader.setMinimumSectionSize(mTable.fontMetrics().averageCharWidth() * kShortestColumn);
    const int digit = mTable.fontMetrics().horizontalAdvance('0');
    int room = mTable.viewport()->width();
    int names = 0;
    for (int column = 0; column < mHeader.count(); ++column) {
        if (isName(column))
            names += usualWidth(column);
        else
            room -= digit * usualWidth(column);
        mTable.setColumnWidth(column, digit * usualWidth(column));
    }
    for (int column = 0; column < mHeader.count(); ++column) {
        const int usual = usualWidth(column);
        if (isName(column) && column != For)
            mTable.setColumnWidth(column, qBound(digit * kLeastNameInDigits, room * usual / names, digit * usual));
    }
}
