#include "workspace/controls/CVSetPicker.h"

#include "widgets/fields/CVWheelSafeComboBox.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>

namespace {

/// The narrowest and the widest visible part of a set's name, in letters.
constexpr int kShortestSetName = 8;
constexpr int kLongestSetName = 28;
/// The distance to the frame of the page below. In pixels.
constexpr int kGapBelow = 2;

} // namespace

CVSetPicker::CVSetPicker(QTabWidget& tabs)
    : QWidget(&tabs)
    , mTabs(tabs)
    , mLabel(new QLabel(tr("Transaction &Set"), this))
    , mTransactionSet(new CVWheelSafeComboBox(this)) {
    mLabel->setBuddy(mTransactionSet);
    mTransactionSet->setObjectName(QStringLiteral("mTransactionSet"));
    mTransactionSet->setAccessibleName(tr("Transaction Set"));
    mTransactionSet->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    mTransactionSet->setMinimumContentsLength(kShortestSetName);
    connect(mTransactionSet, &QComboBox::activated, this, &CVSetPicker::pick);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(layout->spacing(), 0, 0, kGapBelow);
    layout->addWidget(mLabel);
    layout->addWidget(mTransactionSet, 1);
    tabs.setCornerWidget(this);
}

void CVSetPicker::setNames(const QStringList& names, int current, CVShownSets shownSets) {
    // Unchanged names are not set again, because new items lay out the tabs anew.
    if (names != mNames) {
        mNames = names;
        mTransactionSet->clear();
        mTransactionSet->addItems(names);
        if (names.size() > 1) {
            mTransactionSet->insertSeparator(mTransactionSet->count());
            mTransactionSet->addItem(tr("All Sets"));
        }
    }
    mTransactionSet->setCurrentIndex(shownSets == CVShownSets::All ? mTransactionSet->count() - 1 : current);
    setVisible(names.size() > 1);
}

void CVSetPicker::pick(int index) {
    if (index < mNames.size())
        emit picked(index);
    else
        emit allPicked();
}

QSize CVSetPicker::sizeHint() const {
    const int longest = shortestWidth() + (kLongestSetName - kShortestSetName) * fontMetrics().averageCharWidth();
    const QSize wish = mTransactionSet->sizeHint().boundedTo({longest, QWIDGETSIZE_MAX});
    const int gap = layout()->spacing();
    const int room = mTabs.width() - mTabs.tabBar()->sizeHint().width() - gap - labelWidth();
    const int popUp = qBound(shortestWidth(), room, wish.width());
    return {gap + popUp + (room < shortestWidth() ? 0 : labelWidth()), wish.height() + kGapBelow};
}

QSize CVSetPicker::minimumSizeHint() const {
    return {layout()->spacing() + shortestWidth(), sizeHint().height()};
}

void CVSetPicker::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The layout is activated at once: until the event loop did so, the pop-up would lie beyond the edge.
    const int room = width() - layout()->spacing();
    const bool isLabelled = room >= labelWidth() + shortestWidth();
    mLabel->setVisible(isLabelled);
    // The pop-up resizes itself to its longest item some time after its items have changed; the maximum width prevents
    // that.
    mTransactionSet->setMaximumWidth(isLabelled ? room - labelWidth() : room);
    layout()->activate();
}

int CVSetPicker::shortestWidth() const {
    return mTransactionSet->minimumSizeHint().width();
}

/// The width of the label and of the gap to the pop-up.
int CVSetPicker::labelWidth() const {
    return mLabel->sizeHint().width() + layout()->spacing();
}
