#include "preferences/CVPreferencePane.h"

#include "shared/widgets/CVSteadyComboBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

CVPreferencePane::CVPreferencePane(CVPreferenceStore& store, QWidget* parent)
    : QWidget(parent)
    , mStore(store)
    , mForm(new QFormLayout(this)) {
    mForm->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    // Beside each other as long as there is room for it.
    mForm->setRowWrapPolicy(QFormLayout::WrapLongRows);
}

QComboBox& CVPreferencePane::addPopUp(const QString& label, const QString& name, const char* objectName) {
    auto* const popUp = new CVSteadyComboBox(this);
    popUp->setObjectName(QLatin1String(objectName));
    popUp->setAccessibleName(name);
    popUp->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    mForm->addRow(label, popUp);
    return *popUp;
}

QCheckBox& CVPreferencePane::addCheckBox(const QString& text, const QString& name, const char* objectName) {
    auto* const box = new QCheckBox(text, this);
    box->setObjectName(QLatin1String(objectName));
    box->setAccessibleName(name);
    mForm->addRow(QString(), box);
    return *box;
}

void CVPreferencePane::addHint(const QString& text) {
    auto* const hint = new QLabel(text, this);
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    hint->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    mForm->addRow(QString(), hint);
}
