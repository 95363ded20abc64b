#include "preferences/CVPreferencePane.h"

#include "widgets/fields/CVWheelSafeComboBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kHintDistance = 2;
constexpr int kHintIndent = 6;
/// The visible part of an item where the window is narrow, in letters.
constexpr int kShortestPopUp = 10;

} // namespace

CVPreferencePane::CVPreferencePane(CVPreferenceStore& store, QWidget* parent)
    : QWidget(parent)
    , mStore(store)
    , mForm(new QFormLayout(this)) {
    mForm->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    // A label is above its control only where there is no room beside it.
    mForm->setRowWrapPolicy(QFormLayout::WrapLongRows);
}

QComboBox& CVPreferencePane::addPopUp(const QString& label, const QString& name, const char* objectName,
                                      const QString& hint) {
    auto* const popUp = new CVWheelSafeComboBox(this);
    popUp->setObjectName(QLatin1String(objectName));
    popUp->setAccessibleName(name);
    popUp->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    popUp->setMinimumContentsLength(kShortestPopUp);
    auto* const title = new QLabel(label, this);
    title->setBuddy(popUp);
    auto* const field = new QVBoxLayout;
    field->addWidget(popUp);
    if (!hint.isEmpty())
        addHint(*field, *popUp, hint);
    mForm->addRow(title, field);
    return *popUp;
}

QCheckBox& CVPreferencePane::addCheckBox(const QString& text, const QString& name, const char* objectName) {
    auto* const box = new QCheckBox(text, this);
    box->setObjectName(QLatin1String(objectName));
    box->setAccessibleName(name);
    mForm->addRow(QString(), box);
    return *box;
}

void CVPreferencePane::addHint(QVBoxLayout& below, QWidget& control, const QString& text) {
    control.setAccessibleDescription(text);
    auto* const hint = new QLabel(text, this);
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    hint->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    // The hint is closer to its control than to the next row, and is indented.
    below.setSpacing(kHintDistance);
    hint->setContentsMargins(kHintIndent, 0, 0, hint->fontMetrics().height() / 2);
    below.addWidget(hint);
}
