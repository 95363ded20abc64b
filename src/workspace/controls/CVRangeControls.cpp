#include "workspace/controls/CVRangeControls.h"

#include "budget/CVRangePresets.h"
#include "widgets/fields/CVDateField.h"
#include "widgets/fields/CVWheelSafeComboBox.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include <array>

namespace {

constexpr std::array<const char*, kCVRangePresets> kPresets{
    QT_TRANSLATE_NOOP("CVRangeControls", "All"),        QT_TRANSLATE_NOOP("CVRangeControls", "This Year and Last"),
    QT_TRANSLATE_NOOP("CVRangeControls", "Last Year"),  QT_TRANSLATE_NOOP("CVRangeControls", "This Year"),
    QT_TRANSLATE_NOOP("CVRangeControls", "Last Month"), QT_TRANSLATE_NOOP("CVRangeControls", "This Month"),
    QT_TRANSLATE_NOOP("CVRangeControls", "Last Week"),  QT_TRANSLATE_NOOP("CVRangeControls", "This Week")};

/// The minimum width of the pop-up, in letters.
constexpr int kShortestPreset = 6;

void name(QWidget& widget, const CVRangeControls::Naming& naming) {
    widget.setObjectName(naming.objectName);
    widget.setAccessibleName(naming.accessibleName);
}

} // namespace

CVRangeControls::CVRangeControls(const Naming& preset, const Naming& start, const Naming& end, QWidget* parent)
    : QWidget(parent)
    , mPreset(new CVWheelSafeComboBox(this))
    , mStart(new CVDateField(this))
    , mEnd(new CVDateField(this)) {
    name(*mPreset, preset);
    name(*mStart, start);
    name(*mEnd, end);
    for (const char* const item : kPresets)
        mPreset->addItem(tr(item));
    // The pop-up is as high as the date fields beside it.
    mPreset->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    mPreset->setMinimumContentsLength(kShortestPreset);
    mStart->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    mEnd->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mPreset);
    layout->addWidget(mStart);
    layout->addWidget(new QLabel(tr("to"), this));
    layout->addWidget(mEnd);
    layout->addStretch();

    connect(mPreset, &QComboBox::activated, this, &CVRangeControls::presetPicked);
    connect(mStart, &CVDateField::dateEntered, this, &CVRangeControls::startEntered);
    connect(mEnd, &CVDateField::dateEntered, this, &CVRangeControls::endEntered);
}

int CVRangeControls::preset() const {
    return mPreset->currentIndex();
}

CVDayRange CVRangeControls::range() const {
    return {mStart->QBDateValue(), mEnd->QBDateValue()};
}

void CVRangeControls::setPreset(int index) {
    mPreset->setCurrentIndex(index);
}

void CVRangeControls::setRange(const CVDayRange& range) {
    setStart(range.start);
    setEnd(range.end);
}

void CVRangeControls::setStart(const QBDate& start) {
    mStart->setQBDateValue(start);
}

void CVRangeControls::setEnd(const QBDate& end) {
    mEnd->setQBDateValue(end);
}
